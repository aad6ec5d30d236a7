// The cores against the plain model of them, under both simulators.

#include <QtTest>

#include "tests/gateware/simulation.h"

using namespace RTLJEX;

namespace {

// Of cores that are numbered by their places.
Bench benchOf(const std::vector<RandomCore> &cores)
{
    Bench bench;
    bench.sources = gatewareSources();
    for (const RandomCore &core : cores) {
        (core.standard ? core.standard->coreNumber : core.lite->coreNumber) = bench.cores.size();
        bench.cores += &core;
        bench.modules += coreModule(core.any(), core.options);
        bench.sources += bench.modules.last().text;
        if (!bench.modules.last().fault.isEmpty())
            qFatal("%s", qPrintable(bench.modules.last().fault));
    }
    return bench;
}

std::vector<RandomCore> randomCores(int first, int count, bool unknowns)
{
    std::vector<RandomCore> cores;
    for (int i = 0; i < count; ++i)
        cores.push_back(randomCore(unsigned(first + i), unknowns));
    return cores;
}

} // namespace

class GatewareTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void likeTheModel_data()
    {
        QTest::addColumn<int>("simulator");
        QTest::addColumn<int>("first");
        const bool isFull = qEnvironmentVariable("JEX_WAVE") == "full";
        for (int batch = qEnvironmentVariableIntValue("B"); batch < (isFull ? 13 : 1); ++batch) {
            QTest::addRow("Icarus %d", batch) << int(Icarus) << batch * 24;
            QTest::addRow("Verilator %d", batch) << int(Verilator) << batch * 24;
        }
    }

    void likeTheModel()
    {
        QFETCH(int, simulator);
        QFETCH(int, first);
        const std::vector<RandomCore> cores = randomCores(first, 24, simulator == Icarus);
        const Bench bench = benchOf(cores);
        const QStringList captured = simulate(bench, Simulator(simulator));
        int windows = 0;
        for (int i = 0; i < captured.size(); ++i) {
            const CapturedCore expected = cores[i].expected(bench.edges());
            windows += expected.windows.size();
            if (captured[i] != captureText(expected)) {
                for (auto *core : {cores[i].standard.get(), cores[i].loaded.get()}) {
                    if (!core) continue;
                    qDebug() << core->expressions << core->triggerMode << core->triggerPosition << cores[i].options.triggerByAny;
                    for (auto *unit : core->enabledMatchUnits())
                        qDebug() << unit->unitNumber << unit->triggerPort->portNumber << unit->function << unit->value << unit->upperValue;
                }
                for (auto &command : cores[i].commands) qDebug() << command.kind << command.half;
            }
            QVERIFY2(captured[i] == captureText(expected),
                     qPrintable(QString("core %1\n%2\nexpected\n%3")
                                    .arg(first + i)
                                    .arg(captured[i], captureText(expected))));
        }
        QVERIFY2(windows > 24, "hardly a core has triggered");
    }
};

QTEST_GUILESS_MAIN(GatewareTest)
#include "tst_gateware.moc"
