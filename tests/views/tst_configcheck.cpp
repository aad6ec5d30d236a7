#include <QtTest>

#include "model/jex/core.h"
#include "model/netlist/rtlnetlist.h"
#include "tests/support/netlisttext.h"
#include "tests/support/signaltext.h"
#include "tests/support/tablerow.h"
#include "views/configcheck.h"

using namespace JEX;
using namespace RTLJEX;

// Everything in order: port 2 of three bits, M3 bound to it.
static void fill(AoCore *core)
{
    core->getTrigger(2)->signalItems = signalsFromText("b:top/a[1:0]{top/a[1],top/a[0]} s:top/b");
    MatchUnit *unit = core->matchUnit(3);
    unit->enabled = true;
    unit->triggerPort = core->getTrigger(2);
    unit->value = "01X";
    core->expressions << "M3";
    core->sampleClock = "top/clk";
    core->enabledCaptureSignals = signalsFromText("s:top/b");
}

class ConfigCheckTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void standard()
    {
        const Rows<void (*)(AoCore *), const char *> rows = {
            {[](AoCore *) {}, ""},
            {[](AoCore *core) {
                 core->getTrigger(2)->signalItems.clear();
                 core->matchUnit(3)->enabled = false;
                 core->expressions.clear();
                 core->sampleClock.clear();
                 core->enabledCaptureSignals.clear();
             },
             "Core 5: No available trigger ports\nCore 5: No available match units\n"
             "Core 5: No expressions specified\nCore 5: No sample clock specified\n"
             "Core 5: No capture signals specified"},
            {[](AoCore *core) { core->matchUnit(3)->enabled = false; },
             "Core 5: No available match units\nCore 5: M3 in expression \"M3\" is not enable"},
            {[](AoCore *core) { core->matchUnit(3)->triggerPort = nullptr; },
             "Core 5: M3 doesn't bind a trigger port"},
            {[](AoCore *core) {
                 core->matchUnit(12)->enabled = true;
                 core->matchUnit(12)->triggerPort = core->getTrigger(7);
             },
             "Core 5: Trigger port 7 for M12 is not available"},
            {[](AoCore *core) { core->matchUnit(3)->value = "01"; },
             "Core 5: Length of M3 is not equal to trigger port 2"},
            {[](AoCore *core) { core->expressions[0] = "M1||!M1"; },
             "Core 5: M1 in expression \"M1||!M1\" is not enable\n"
             "Core 5: M1 in expression \"M1||!M1\" is not enable"},
            {[](AoCore *core) { core->expressions << "M03%1 99%2"; },
             "Core 5: M1 in expression \"M03%1 99%2\" is not enable\n"
             "Core 5: M99 in expression \"M03%1 99%2\" is not enable\n"
             "Core 5: M2 in expression \"M03%1 99%2\" is not enable"},
            {[](AoCore *core) { core->expressions << "M99999999999"; }, ""},
            {[](AoCore *core) { core->sampleClock = "top/none"; },
             "Core 5: The specified sample clock does not exist"},
            {[](AoCore *core) { core->sampleClock = "top/a[1]"; }, ""}, // a bit, unlike a whole bus
            {[](AoCore *core) { core->sampleClock = "top/a[1:0]"; },
             "Core 5: The specified sample clock does not exist"},
            {[](AoCore *core) { core->enabledCaptureSignals[0].capEnable = false; },
             "Core 5: No capture signals specified"},
        };
        for (const auto &[change, errors] : rows) {
            AoCore core(5);
            fill(&core);
            change(&core);
            QString found = "old";
            const bool ok = checkCores(QList<JEX::AoCore *>{&core}, m_netlist.get(), &found);
            QCOMPARE(found, QString(errors));
            QCOMPARE(ok, found.isEmpty());
            QCOMPARE(checkCores(QList<JEX::AoCore *>{&core}, m_netlist.get(), nullptr), ok);
        }

        AoCore a(7), b(0);
        fill(&a);
        fill(&b);
        a.sampleClock.clear();
        b.expressions.clear();
        QString found;
        QVERIFY(!checkCores(QList<JEX::AoCore *>{&a, &b}, m_netlist.get(), &found));
        QCOMPARE(found, QString("Core 7: No sample clock specified\nCore 0: No expressions specified"));
    }

    void lite()
    {
        AOCore_Lite good, bad;
        good.sampleClock = "top/clk";
        good.enabledCaptureSignals = signalsFromText("!s:top/b"); // not scanned
        bad.coreNumber = 1;
        QString found;
        QVERIFY(!checkCores(QList<JEX::AOCore_Lite *>{&good, &bad}, m_netlist.get(), &found));
        QCOMPARE(found, QString("Core 1: No sample clock specified\nCore 1: No capture signals specified"));
        QVERIFY(!checkCores(QList<JEX::AOCore_Lite *>{&bad}, m_netlist.get(), &found));
        QCOMPARE(found, QString("Core 0: No sample clock specified\nCore 0: No capture signals specified"));
        QVERIFY(!checkCores(QList<JEX::AOCore_Lite *>{&good}, nullptr, &found));
        QCOMPARE(found, QString("Core 0: The specified sample clock does not exist"));
        QVERIFY(checkCores(QList<JEX::AOCore_Lite *>{&good}, m_netlist.get(), &found));
        QCOMPARE(found, QString());
    }

private:
    std::unique_ptr<QUARRY::RtlNetlist> m_netlist{netlistFromText("top\n  clk\n  a[1:0]\n")};
};

QTEST_GUILESS_MAIN(ConfigCheckTest)
#include "tst_configcheck.moc"
