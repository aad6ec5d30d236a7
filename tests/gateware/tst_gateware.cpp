// The cores against the plain model of them, and the tools that have to take them.

#include <cmath>

#include "gateware/coretext.h"
#include "model/jex/storageneed.h"
#include "tests/gateware/simulation.h"
#include "tests/support/files.h"
#include "tests/support/signaltext.h"
#include "tests/support/tablerow.h"
#include "tests/support/tools.h"

using namespace RTLJEX;

namespace {

enum { BatchSize = 24 };

// As ./dev wave wants it.
bool isFull()
{
    return qEnvironmentVariable("JEX_WAVE") == "full";
}

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

// Small ones that have captured something.
std::vector<RandomCore> capturingCores()
{
    std::vector<RandomCore> cores;
    for (unsigned number = 0; cores.size() < 16; ++number) {
        RandomCore core = randomCore(number, true);
        const int depth = core.standard ? core.standard->storageSize : core.lite->captureAmount;
        if (depth <= 128 && !core.expected(core.halves.size()).windows.isEmpty())
            cores.push_back(std::move(core));
    }
    return cores;
}

QByteArray described(const RandomCore &core)
{
    Configuration file(core.standard ? JEX::StandardMode : JEX::LiteMode);
    if (core.standard)
        file.coresOf<JEX::AoCore>().append(core.standard.get());
    else
        file.coresOf<JEX::AOCore_Lite>().append(core.lite.get());
    QByteArray bytes;
    QString error;
    file.toBytes(&bytes, &error);
    std::visit([](auto &cores) { cores.clear(); }, file.coreList());
    for (const RandomCore::At &command : core.commands)
        bytes += "command " + QByteArray::number(command.kind) + " before edge " +
                 QByteArray::number(command.half) + '\n';
    return bytes;
}

// How many of the cores captured something else than the model.
int differences(const Bench &bench)
{
    const QStringList captured = simulate(bench, Icarus);
    int count = 0;
    for (int i = 0; i < captured.size(); ++i)
        count += captured[i] != captureText(bench.cores[i]->expected(bench.edges()));
    return count;
}

// A small core that can be made.
std::unique_ptr<JEX::AoCore> soundCore()
{
    std::unique_ptr<JEX::AoCore> core(new JEX::AoCore(3));
    core->sampleClock = "top/clk";
    core->captureSignals = core->enabledCaptureSignals = signalsFromText("s:a b:b[1:0]{b[1],b[0]} !s:c");
    core->triggerPorts[2]->signalItems = signalsFromText("s:a b:d[1:0]{d[1],d[0]}");
    core->matchUnits[1]->enabled = true;
    core->matchUnits[1]->triggerPort = core->triggerPorts[2];
    core->matchUnits[1]->value = "0XR";
    core->expressions = QStringList("!M1");
    return core;
}

AnyCore anyOf(JEX::AoCore *core)
{
    return anyCores(QList<JEX::AoCore *>{core}).first();
}

} // namespace

class GatewareTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void likeTheModel_data()
    {
        columns<int, int>("simulator", "first");
        for (int batch = 0; batch < (isFull() ? 13 : 1); ++batch) {
            QTest::addRow("Icarus %d", batch) << int(Icarus) << batch * BatchSize;
            QTest::addRow("Verilator %d", batch) << int(Verilator) << batch * BatchSize;
        }
    }
    void likeTheModel()
    {
        auto [simulator, first] = cells<int, int>("simulator", "first");
        // What Verilator writes takes long to compile.
        const int count = simulator == Icarus || isFull() ? BatchSize : BatchSize / 2;
        const std::vector<RandomCore> cores = randomCores(first, count, simulator == Icarus);
        const Bench bench = benchOf(cores);
        const QStringList captured = simulate(bench, Simulator(simulator));
        int windows = 0;
        for (int i = 0; i < captured.size(); ++i) {
            const CapturedCore expected = cores[i].expected(bench.edges());
            windows += expected.windows.size();
            if (captured[i] != captureText(expected))
                qWarning("Core %d:\n%s", first + i, described(cores[i]).constData());
            QCOMPARE(captured[i], captureText(expected));
        }
        QVERIFY2(windows > count / 2, "hardly a core has triggered");
    }

    // What the numbers of ./dev wave hold, so that none of it is missed by chance.
    void randomCoresHoldAll()
    {
        QMap<QString, int> count;
        for (unsigned number = 0; number < 13 * BatchSize; ++number) {
            const RandomCore core = randomCore(number, true);
            const CapturedCore captured = core.expected(core.halves.size());
            ++count[core.lite ? "Lite" : core.standard->isStatic() ? "Static" : "Dynamic"];
            count["capture ends"] += captured.isDone;
            count["loaded units"] += !core.settings.isEmpty();
            if (core.lite || captured.windows.isEmpty())
                continue;
            const JEX::AoCore &standard = *core.standard;
            const int position = standard.triggerPosition;
            count["any"] += core.options.triggerByAny;
            count["triggered"] += captured.windows.last().trigger >= 0;
            count["levels"] += standard.expressions.size() > 1 && !core.options.triggerByAny;
            ++count[QString("edge %1").arg(standard.sampleEdge)];
            ++count[QString("segments %1").arg(standard.windowNumber, 2)];
            ++count[QString("memory %1").arg(standard.captureImplementation)];
            ++count[QString("table %1").arg(standard.isStatic() ? standard.triggerImplementation : -1)];
            ++count[position == 0                            ? "first position"
                    : position == standard.captureAmount - 4 ? "last position"
                                                             : "position between"];
            for (const JEX::MatchUnit *unit : standard.enabledMatchUnits()) {
                if (!(captured.seen >> unit->unitNumber & 1))
                    continue;
                ++count[QString("function %1").arg(unit->function)];
                ++count[QString("width %1").arg(unit->value.size(), 2)];
                for (QChar c : QString("01XRFBN"))
                    count[QString("character ") + c] += unit->value.contains(c);
            }
        }
        for (auto it = count.begin(); it != count.end(); ++it) {
            qInfo("%s: %d", qPrintable(it.key()), it.value());
            QVERIFY2(it.value() > 0, qPrintable(it.key()));
        }
        QVERIFY2(count["triggered"] > 150, "of 234 Standard cores");
        for (const char *rare : {"segments 16", "width  1", "width 64", "table 0", "table 1", "table 2"})
            QVERIFY2(count.contains(rare), rare);
    }

    // A comparison that cannot tell a wrong core from a right one would be worth nothing.
    void wrongCoresAreCaught_data()
    {
        textColumns("right", "wrong");
        row("position", ".POSITION(POSITION)", ".POSITION(POSITION + 1)");
        row("order of bits", ".data(data)", ".data({data[0], data} >> 1)");
        row("inverted trigger", "& (trigger | forced)", "& (~trigger | forced)");
        row("edge of the clock", ".FALLING(FALLING)", ".FALLING(1 - FALLING)");
        row("edge of the force line", "FORCE_FALLING != 0", "FORCE_FALLING == 0");
        row("edge of a bit", "(changed ^ (care | level))", "(changed ^ level)");
        row("late data", ".STAGES(DATA_STAGES)", ".STAGES(DATA_STAGES + 1)");
        row("level", "LEVELS - 1", "LEVELS - 2");
        row("bound of a range", "now <= upper", "now < upper");
        row("order of a table", "words[match]", "words[~match]");
        row("segment", "base + STEP[AB-1:0]", "base");
        row("input register", ".in({valid_1, force_1, data_1})", ".in({1'b1, force_1, data_1})");
    }
    void wrongCoresAreCaught()
    {
        auto [right, wrong] = textCells("right", "wrong");
        static const std::vector<RandomCore> cores = capturingCores();
        Bench bench = benchOf(cores);
        QVERIFY(bench.sources.contains(right.toLatin1()));
        bench.sources.replace(right.toLatin1(), wrong.toLatin1());
        const int caught = differences(bench);
        qInfo("%d of %d cores differ", caught, int(cores.size()));
        QVERIFY(caught > 0);
    }

    void toolsTakeThem()
    {
        Folder folder;
        const std::vector<RandomCore> cores = randomCores(0, 8, false);
        const Bench bench = benchOf(cores);
        folder.write("cores.v", "/* verilator lint_off DECLFILENAME */\n" + bench.sources);
        QCOMPARE(runTool(folder.path(), "iverilog", {"-Wall", "-g2001", "-o", "cores.vvp", "cores.v"}),
                 QByteArray());
        for (const CoreModule &module : bench.modules) {
            const QString name = module.name;
            QCOMPARE(runTool(folder.path(), "verilator_bin",
                             {"--lint-only", "-Wall", "--top-module", name, "cores.v"}),
                     QByteArray());
            QCOMPARE(runTool(folder.path(), "yosys",
                             {"-q", "-p",
                              "read_verilog cores.v; hierarchy -check -top " + name +
                                  "; proc; flatten; opt; memory; check -assert"}),
                     QByteArray());
        }
    }

    void memoriesAreThoseOfTheEditor_data()
    {
        columns<QString, QStringList, int, int, int>("synthesis", "device", "implementation", "signalCount",
                                                     "depth");
        const QStringList ice40{"iCE40", "iCE40HX8K"};
        const QStringList ecp5{"ECP5", "LFE5U-25F"};
        const QStringList artix{"Artix-7", "XC7A35T"};
        const int block = JEX::BsramImplementation;
        const int shadow = JEX::SsramImplementation;
        const int registers = JEX::RegImplementation;
        row("iCE40 90x1024", "synth_ice40", ice40, block, 90, 1024);
        row("ECP5 20x64", "synth_ecp5", ecp5, shadow, 20, 64);
        row("Artix-7 90x1024", "synth_xilinx", artix, block, 90, 1024);
        if (!isFull())
            return;
        row("iCE40 31x1024", "synth_ice40", ice40, block, 31, 1024);
        row("iCE40 100x256", "synth_ice40", ice40, block, 100, 256);
        row("iCE40 7x16", "synth_ice40", ice40, registers, 7, 16);
        row("ECP5 31x1024", "synth_ecp5", ecp5, block, 31, 1024);
        row("ECP5 90x1024", "synth_ecp5", ecp5, block, 90, 1024);
        row("ECP5 100x256", "synth_ecp5", ecp5, block, 100, 256);
        row("ECP5 7x16", "synth_ecp5", ecp5, registers, 7, 16);
        row("Artix-7 31x1024", "synth_xilinx", artix, block, 31, 1024);
        row("Artix-7 100x256", "synth_xilinx", artix, block, 100, 256);
        row("Artix-7 20x64", "synth_xilinx", artix, shadow, 20, 64);
        row("Artix-7 7x16", "synth_xilinx", artix, registers, 7, 16);
    }
    void memoriesAreThoseOfTheEditor()
    {
        auto [synthesis, device, implementation, signalCount, depth] =
            cells<QString, QStringList, int, int, int>("synthesis", "device", "implementation", "signalCount",
                                                       "depth");
        const JEX_TOOL::Device *known = JEX_TOOL::findDevice(device[0], device[1]);
        const JEX_TOOL::StorageNeed need = JEX_TOOL::storageNeed(
            *known->family, JEX::Implementation(implementation), signalCount, depth, true);
        const char *const styles[] = {"block", "registers", "distributed"};
        Folder folder;
        folder.write("cores.v", gatewareSources());
        const QByteArray said = runTool(
            folder.path(), "yosys",
            {"-p",
             QString("read_verilog cores.v; chparam -set WIDTH %1 -set ADDRESS_BITS %2 -set STYLE \"%3\" "
                     "jex_memory; %4 -top jex_memory; stat")
                 .arg(need.width)
                 .arg(qRound(std::log2(depth)))
                 .arg(styles[implementation])
                 .arg(synthesis)});
        // The register of what is read is no part of the storage.
        int count = implementation == JEX::RegImplementation ? -need.width : 0;
        QRegularExpression cell(
            "(?m)^ +(SB_RAM40_4K|DP16KD|RAMB18E1|RAMB36E1|TRELLIS_DPR16X4|RAM32M|RAM64M|SB_DFFE?"
            "|TRELLIS_FF|FDRE) +([0-9]+)$");
        for (auto it = cell.globalMatch(said.mid(said.lastIndexOf("Number of cells"))); it.hasNext();) {
            const QRegularExpressionMatch match = it.next();
            const bool isRegister = match.captured(1).contains(QRegularExpression("FF|FD"));
            if (isRegister == (implementation == JEX::RegImplementation))
                count += match.captured(2).toInt() * (match.captured(1) == "RAMB36E1" ? 2 : 1);
        }
        QCOMPARE(count, need.required);
    }

    // As simulated with a design that Yosys has rewritten.
    void netlistsOfThem()
    {
        const std::vector<RandomCore> cores = randomCores(24, 8, true);
        Bench bench = benchOf(cores);
        QByteArray all = bench.sources + "module all;\n";
        for (const CoreModule &module : bench.modules)
            all += module.name + " of_" + module.name + "();\n";
        Folder folder;
        folder.write("cores.v", all + "endmodule\n");
        runTool(folder.path(), "yosys",
                {"-q", "-p", "read_verilog cores.v; hierarchy -top all; proc -ifx; write_verilog netlist.v"});
        bench.sources = folder.read("netlist.v");
        QCOMPARE(differences(bench), 0);
    }

    void tapsOfACore()
    {
        const std::unique_ptr<JEX::AoCore> core = soundCore();
        const CoreModule module = coreModule(anyOf(core.get()));
        QCOMPARE(module.fault, QString());
        QStringList taps;
        for (const CoreTap &tap : module.taps)
            taps += QString("%1[%2] %3").arg(QString(tap.port)).arg(tap.bit).arg(tap.net);
        QCOMPARE(
            taps.join(", "),
            QString("data[0] a, data[1] b[1], data[2] b[0], trig_2[2] a, trig_2[1] d[1], trig_2[0] d[0]"));
    }

    void partOfACapture()
    {
        CapturedCore captured;
        QString error;
        const CoreLayout layout = coreModule(anyOf(soundCore().get())).layout;
        const QByteArray word(32, '0');
        QVERIFY(!readCapture("status " + word + ' ' + word + ' ' + word + '\n' + word, layout, &captured,
                             &error));
        QCOMPARE(error, QString("The captured samples are not complete."));
    }

    void faults()
    {
        const Rows<std::function<void(JEX::AoCore *)>, const char *> table = {
            {[](JEX::AoCore *core) { core->enabledCaptureSignals.clear(); }, "it captures no signals."},
            {[](JEX::AoCore *core) { core->windowNumber = 3; },
             "a capture amount of 1024 does not fit into one of 3 segments of a storage of 1024 samples."},
            {[](JEX::AoCore *core) { core->captureAmount = 0; },
             "a capture amount of 0 does not fit into one of 1 segments of a storage of 1024 samples."},
            {[](JEX::AoCore *core) { core->triggerPosition = 1021; },
             "a trigger position of 1021 does not suit a capture amount of 1024: it is from 0 to 1020."},
            {[](JEX::AoCore *core) { core->expressions.clear(); },
             "it has no trigger expression, so it would never trigger."},
            {[](JEX::AoCore *core) { core->expressions = QStringList("M1 M1"); },
             "the expression \"M1 M1\" cannot be made: it is not well formed."},
            {[](JEX::AoCore *core) { core->expressions = QStringList("M1&$finish"); },
             "the expression \"M1&$finish\" cannot be made: it is not well formed."},
            {[](JEX::AoCore *core) { core->expressions = QStringList("M1|M2"); },
             "the expression \"M1|M2\" cannot be made: M2 is not enabled."},
            {[](JEX::AoCore *core) { core->matchUnits[1]->triggerPort = nullptr; },
             "M1 cannot be made: it is not bound to a trigger port."},
            {[](JEX::AoCore *core) { core->matchUnits[1]->value = "01"; },
             "M1 cannot be made: The value has 2 bits, but the trigger port has 3."},
        };
        for (const auto &[change, fault] : table) {
            const std::unique_ptr<JEX::AoCore> core = soundCore();
            change(core.get());
            QCOMPARE(coreModule(anyOf(core.get())).fault, "Core 3 cannot be made: " + QString(fault));
        }
    }
};

QTEST_GUILESS_MAIN(GatewareTest)
#include "tst_gateware.moc"
