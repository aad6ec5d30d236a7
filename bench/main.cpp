#include "bench/bench.h"
#include "bench/context.h"

#include <QApplication>

#include <sys/resource.h>

#include <chrono>
#include <cstdio>

namespace {

int overGoal = 0;
bool usesProcessorTime = false;

double milliseconds(const timeval &time)
{
    return double(time.tv_sec) * 1e3 + double(time.tv_usec) / 1e3;
}

double processorTime(int whose)
{
    rusage usage;
    getrusage(whose, &usage);
    return milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime);
}

} // namespace

void useProcessorTime()
{
    usesProcessorTime = true;
}

double now()
{
    if (usesProcessorTime)
        return processorTime(RUSAGE_SELF) + processorTime(RUSAGE_CHILDREN);
    const auto time = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double, std::milli>(time).count();
}

void print(const Row &row)
{
    const double ratio = row.limit > 0 ? row.figure / row.limit : row.figure;
    const bool isOver = ratio > row.goal;
    overGoal += isOver ? 1 : 0;
    const QByteArray limit = row.limit > 0 ? QByteArray::number(row.limit, 'f', 2) : QByteArray("-");
    printf("%-84s %9.2f %9s %-3s %8.3f %7.3g  %s\n", qPrintable(row.work), row.figure, limit.constData(),
           qPrintable(row.unit), ratio, row.goal, isOver ? "over" : "ok");
    fflush(stdout);
}

int rowsOverGoal()
{
    return overGoal;
}

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    if (application.arguments().contains(QStringLiteral("--cpu")))
        useProcessorTime();
    Context context;
    printf("%-84s %9s %9s %-3s %8s %7s\n", "work | limit", "figure", "limit", "", "ratio", "goal");
    if (application.arguments().contains(QStringLiteral("--editor"))) {
        measureEditor(context);
        return 0;
    }
    if (application.arguments().contains(QStringLiteral("--filter"))) {
        context.netlist = context.design.netlist();
        measureFilter(context);
        return 0;
    }
    // First, while no larger tool has run.
    measureInsertion(context);
    if (application.arguments().contains(QStringLiteral("--insertion")))
        return 0;
    const bool onlyOpening = application.arguments().contains(QStringLiteral("--opening"));
    if (!onlyOpening) {
        measureNetlist(context);
        measureSearch(context);
        measureFilter(context);
        measureWide();
        measureConfiguration(context);
        measureResultTree(context);
        measureSignals(context);
        measurePages(context);
    }
    measureOpening(context);
    measureVhdl(context);
    measureConfinement(context);
    if (!onlyOpening)
        measureEditor(context);
    printf("%d over their goal\n", rowsOverGoal());
    return 0;
}
