#include "bench/bench.h"
#include "bench/context.h"

#include <QApplication>

#include <cstdio>

namespace {

int overGoal = 0;

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
    Context context;
    printf("%-84s %9s %9s %-3s %8s %7s\n", "work | limit", "figure", "limit", "", "ratio", "goal");
    measureNetlist(context);
    measureSearch(context);
    measureSignals(context);
    measureConfiguration(context);
    measureResultTree(context);
    measureSignals(context);
    measureOpening(context);
    printf("%d over their goal\n", rowsOverGoal());
    return 0;
}
