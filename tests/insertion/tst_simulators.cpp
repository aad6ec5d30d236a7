// Both simulators capture the same, where a core does not fill all of its windows, too; what is unknown may
// be anything for Verilator. It compiles long, so the example has its turn in ./dev wave alone.

#include "elaboration/elaboration.h"
#include "host/designmanager.h"
#include "host/project.h"
#include "insertion/simulationjob.h"
#include "model/netlist/rtlnetlist.h"
#include "tests/support/files.h"

#include <QSignalSpy>
#include <QtTest>

#include <memory>

using namespace QUARRY;
using Insertion::Simulator;

namespace {

const char design[] = R"(
module top #(parameter STEP = 3) (input clk, input clk2, input rst, output reg [7:0] count, output reg [2:0] slow,
           output reg late);
  always @(posedge clk) if (count == 8'h18) late <= 1'b1;
  always @(posedge clk) if (rst) count <= 8'h00; else count <= count + STEP;
  always @(negedge clk2) if (rst) slow <= 3'd0; else slow <= slow + {2'b00, count[1]};
endmodule
)";

// The count comes round three times.
const char bench[] = R"(
`timescale 1ns / 1ps
module tb;
  reg clk = 0, clk2 = 0, rst = 1;
  always #5 clk = ~clk;
  always #8 clk2 = ~clk2;
  top #(.STEP(1)) dut(.clk(clk), .clk2(clk2), .rst(rst), .count(), .slow(), .late());
  initial begin #33 rst = 0; #8000 $finish; end
endmodule
)";

JEX::SignalItem net(const QString &name)
{
    JEX::SignalItem item;
    item.name = name;
    item.type = JEX::NetKind;
    return item;
}

JEX::SignalItem bus(const QString &name, int width)
{
    JEX::SignalItem item = net(QString("%1[%2:0]").arg(name).arg(width - 1));
    item.type = JEX::BusKind;
    for (int bit = width - 1; bit >= 0; --bit)
        item.members << net(QString("%1[%2]").arg(name).arg(bit));
    return item;
}

} // namespace

class SimulatorsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        // Compiled without optimisation: that takes longer than what is compiled then runs.
        m_compiler = m_folder.write("compiler", "#!/bin/sh\nexec g++ \"$@\" -O0\n");
        QVERIFY(QFile::setPermissions(m_compiler, QFile::ReadOwner | QFile::ExeOwner));
    }

    void init()
    {
        qputenv("JEX_CXX", QFile::encodeName(m_compiler));
        m_netlist.reset();
        m_input = DesignInput();
        m_input.workingDir = m_folder.path();
        DesignSource source;
        source.path = m_folder.write("design.v", design);
        source.type = 2;
        m_input.files << source;
        m_bench = m_folder.write("tb.v", bench);
    }

    // By Icarus with the analyzer attached to the sources, by Verilator so and in the netlist.
    void capture()
    {
        RTLJEX::Configuration configuration(JEX::StandardMode);
        for (int number : {0, 1}) {
            JEX::AoCore *core = new JEX::AoCore(number);
            core->sampleClock = number ? "top/clk2" : "top/clk";
            core->sampleEdge = number;
            core->storageSize = 128;
            core->captureAmount = 32;
            core->windowNumber = 4;
            core->triggerPosition = 7;
            core->captureImplementation = number ? JEX::RegImplementation : JEX::BsramImplementation;
            core->captureSignals =
                core->enabledCaptureSignals = {bus("top/slow", 3), net("top/rst"), net("top/late")};
            core->triggerPorts[0]->signalItems = {bus("top/count", 8)};
            core->matchUnits[0]->enabled = true;
            core->matchUnits[0]->triggerPort = core->triggerPorts[0];
            core->matchUnits[0]->value = number ? "XXXX01XX" : "00010110";
            core->expressions << "M0";
            configuration.coresOf<JEX::AoCore>() << core;
        }
        const auto icarus = simulate(configuration, Simulator::Icarus, Insertion::SimulationJob::Done);
        for (bool byNetlist : {false, true}) {
            const auto verilator =
                simulate(configuration, Simulator::Verilator, Insertion::SimulationJob::Done, byNetlist);
            for (const auto *job : {icarus.get(), verilator.get()})
                QVERIFY(job->messages().contains("WARNING: Core 0 filled 3 of its 4 windows."));
            QCOMPARE(verilator->captured().first().windows.size(), 3);
            compare(*icarus, *verilator);
            const int end = verilator->record().indexOf("$enddefinitions");
            QVERIFY(end > 0 && verilator->record().mid(end).count("tap_") > 1000);
        }
        QVERIFY2(m_known > m_bits * 9 / 10 && m_known < m_bits, QByteArray::number(m_known));
    }

    void example()
    {
        if (qEnvironmentVariable("JEX_WAVE") != "full")
            QSKIP("./dev wave does it.");
        Core::Project project;
        RTLJEX::Configuration configuration;
        QString error;
        QVERIFY2(project.load(EXAMPLES "/soc/soc.jexprj", &error), qPrintable(error));
        QVERIFY2(configuration.read(EXAMPLES "/soc/trigger.zub", &error), qPrintable(error));
        Core::ProjectManager::setCurrentProject(&project);
        m_input = designInputFromInfo(TE::TaskEngine::instance()->designManager()->getSourceFileInfo());
        Core::ProjectManager::setCurrentProject(nullptr);
        m_bench = EXAMPLES "/soc/tb/soc_tb.v";
        const auto icarus = simulate(configuration, Simulator::Icarus, Insertion::SimulationJob::Done);
        const auto verilator = simulate(configuration, Simulator::Verilator, Insertion::SimulationJob::Done);
        QVERIFY(verilator->benchWords().startsWith("PASS\n"));
        compare(*icarus, *verilator);
        QVERIFY2(m_known > m_bits * 9 / 10, QByteArray::number(m_known));
    }

    void refusals_data()
    {
        QTest::addColumn<QByteArray>("compiler");
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QString>("message");
        QTest::newRow("no compiler")
            << QByteArray("/no/g++") << QByteArray(bench)
            << "ERROR: A simulation by Verilator needs a C++ compiler, and /no/g++ is "
               "not there. Install g++ and make, or let the variable JEX_CXX name a "
               "compiler.";
        QTest::newRow("what it does not know")
            << QByteArray() << QByteArray(bench).replace("#33", "#33 $nobody_knows;")
            << "ERROR: Verilator does not take the test bench.";
    }
    void refusals()
    {
        QFETCH(QByteArray, compiler);
        QFETCH(QByteArray, text);
        QFETCH(QString, message);
        m_bench = m_folder.write("tb.v", text);
        RTLJEX::Configuration configuration(JEX::LiteMode);
        JEX::AOCore_Lite *core = new JEX::AOCore_Lite;
        core->sampleClock = "top/clk";
        core->captureSignals = core->enabledCaptureSignals = {net("top/rst")};
        configuration.coresOf<JEX::AOCore_Lite>() << core;
        qputenv("JEX_CXX", compiler);
        const auto job = simulate(configuration, Simulator::Verilator, Insertion::SimulationJob::Failed);
        QCOMPARE(job->messages().value(0), message);
    }

private:
    void compare(const Insertion::SimulationJob &icarus, const Insertion::SimulationJob &verilator)
    {
        m_known = m_bits = 0;
        QCOMPARE(icarus.captured().size(), 2);
        for (int core = 0; core < icarus.captured().size(); ++core) {
            const QList<RTLJEX::CapturedWindow> ours = icarus.captured().at(core).windows,
                                                theirs = verilator.captured().at(core).windows;
            QCOMPARE(ours.size(), theirs.size());
            for (int window = 0; window < ours.size(); ++window) {
                QCOMPARE(ours.at(window).trigger, theirs.at(window).trigger);
                const QByteArray left = ours.at(window).samples.join(),
                                 right = theirs.at(window).samples.join();
                QCOMPARE(left.size(), right.size());
                for (int bit = 0; bit < left.size(); ++bit) {
                    const bool isKnown = left.at(bit) == '0' || left.at(bit) == '1';
                    QVERIFY(right.at(bit) == left.at(bit) || !isKnown);
                    m_known += isKnown;
                    ++m_bits;
                }
            }
        }
    }

    std::unique_ptr<Insertion::SimulationJob> simulate(const RTLJEX::Configuration &configuration,
                                                       Simulator simulator,
                                                       Insertion::SimulationJob::Outcome outcome,
                                                       bool byNetlist = false)
    {
        QStringList messages;
        if (!m_netlist)
            m_netlist.reset(buildNetlist(m_input, messages));
        Insertion::SimulationOptions options;
        options.bench << m_bench;
        options.simulator = simulator;
        options.byNetlist = byNetlist;
        options.records = true;
        auto job = std::make_unique<Insertion::SimulationJob>(m_input, configuration, *m_netlist, options);
        QSignalSpy end(job.get(), SIGNAL(finished()));
        job->start();
        if (!end.wait(240000))
            qFatal("the simulation does not end");
        if (job->outcome() != outcome)
            qWarning("%s", qPrintable(job->messages().join('\n')));
        return job;
    }

    Folder m_folder;
    DesignInput m_input;
    QString m_bench, m_compiler;
    int m_known = 0, m_bits = 0; // that were compared last
    std::unique_ptr<RtlNetlist> m_netlist;
};

QTEST_GUILESS_MAIN(SimulatorsTest)
#include "tst_simulators.moc"
