// Other tools are the judges: on designs that Yosys reads, too, every name and range that it knows must be in
// the netlist, and no other. The larger designs of tests/elaboration/projects, as their projects have them,
// against what GHDL's simulator knows of their VHDL and Yosys of the Verilog that it takes.

#include "tests/elaboration/sources.h"
#include "tests/support/tablerow.h"
#include "tests/support/tools.h"

#include <random>

using namespace QUARRY;

namespace {

// What Yosys and the netlist call the nets of a design, in the words of Yosys.
QString ranged(const QString &path, int left, int right)
{
    return QString("%1 [%2:%3]").arg(path).arg(left).arg(right);
}

// Yosys joins scopes and instances by dots, and knows no difference between a net and a bus of one bit.
QString asYosysWritesIt(const QString &path)
{
    return QString(path).replace('/', '.');
}

struct Names
{
    QStringList all;
    QSet<QString> mayBeUnknown; // GHDL drops what nothing reads, Yosys never sees it
};

void addOurs(const Hierachy *node, const QString &vhdl, Names &names)
{
    const int first = names.all.size();
    const QString path = node->fullPathName() + '/';
    for (const RtlNet *net : node->nets)
        names.all += ranged(asYosysWritesIt(path + net->name()), 0, 0);
    for (const RtlNetBus *bus : node->buses) {
        const QString name = bus->BusName();
        names.all += asYosysWritesIt(path + name).insert(path.size() + name.lastIndexOf('['), ' ');
    }
    if (vhdl.contains("entity " + node->moduleName + " is"))
        names.mayBeUnknown += QSet<QString>(names.all.begin() + first, names.all.end());
    for (const Hierachy *child : node->children)
        addOurs(child, vhdl, names);
}

class YosysDesign
{
public:
    YosysDesign(const QByteArray &json, const QString &vhdl)
        : m_modules(QJsonDocument::fromJson(json).object()["modules"].toObject()), m_vhdl(vhdl)
    {
    }

    void add(const QString &module, const QString &path, QSet<QString> &names) const
    {
        const QJsonObject nets = m_modules[module].toObject()["netnames"].toObject();
        for (auto it = nets.begin(); it != nets.end(); ++it) {
            const QJsonObject net = it.value().toObject();
            const int low = net["offset"].toInt();
            const int high = low + net["bits"].toArray().size() - 1;
            const bool upwards = net["upto"].toInt();
            if (!net["hide_name"].toInt() && isWritten(module, it.key()))
                names += ranged(path + '.' + plain(it.key()), upwards ? low : high, upwards ? high : low);
        }
        const QJsonObject memories = m_modules[module].toObject()["memories"].toObject();
        for (auto it = memories.begin(); it != memories.end(); ++it) {
            const QJsonObject memory = it.value().toObject();
            const int size = memory["size"].toInt();
            for (int i = 0; i < size && size <= 32; ++i)
                names += ranged(
                    QString("%1.%2[%3]").arg(path, plain(it.key())).arg(memory["start_offset"].toInt() + i),
                    memory["width"].toInt() - 1, 0);
        }
        const QJsonObject cells = m_modules[module].toObject()["cells"].toObject();
        for (auto it = cells.begin(); it != cells.end(); ++it) {
            const QString type = it.value().toObject()["type"].toString();
            if (m_modules.contains(type))
                add(type, path + '.' + plain(it.key()), names);
        }
    }

private:
    // It keeps the backslash of an escaped name that begins with a digit.
    static QString plain(QString name)
    {
        if (name.startsWith('\\'))
            name.remove(0, 1);
        return asYosysWritesIt(name);
    }

    // "f$func$..." holds the locals of a function. What GHDL made up does not stand in the VHDL.
    bool isWritten(const QString &module, const QString &name) const
    {
        if (!m_vhdl.contains("entity " + module + " is"))
            return !name.contains("$func$");
        return m_vhdl.contains(QRegularExpression("\\b" + QRegularExpression::escape(name) + "\\b"));
    }

    QJsonObject m_modules;
    QString m_vhdl;
};

// Modules that instantiate those before them, with ranges, parameters and loops drawn at random.
QByteArray generatedDesign(unsigned seed)
{
    std::mt19937 random(seed);
    const auto number = [&random](int below) { return int(random() % unsigned(below)); };
    const QString loop = "genvar g%1; generate for (g%1 = %2; g%1 < 4; g%1 = g%1 + 1) begin : s%1 "
                         "wire [g%1:0] w; %3 end endgenerate";
    QString text;
    for (int module = 0; module < 12; ++module) {
        text += QString("module m%1 #(parameter W = 3) (input clk);\n").arg(module);
        for (int net = 0; net < 8; ++net) {
            const QString ranges[] = {"", QString("[W+%1:%1] ").arg(number(4)),
                                      QString("[%1:%2] ").arg(number(20) - 5).arg(number(20) - 5)};
            text += QString("  %1 %2net_%3;\n").arg(number(2) ? "wire" : "reg", ranges[number(3)]).arg(net);
        }
        for (int child = 0; module > 0 && child < 2; ++child) {
            const QString instance =
                QString("m%1 #(.W(%2)) u%3(clk);").arg(number(module)).arg(1 + number(5)).arg(child);
            text += (number(2) ? instance : loop.arg(child).arg(number(3)).arg(instance)) + '\n';
        }
        text += "endmodule\n";
    }
    return text.toUtf8() + "module top(input clk); m11 u(clk); m10 #(7) v(clk); endmodule\n";
}

// The signals of a dump of `top`, "path.gen[3].count [7:0]"; what it cannot hold is in `others`, without a
// range.
void addDumped(const QByteArray &vcd, const QString &top, const QString &path, QSet<QString> &names,
               QSet<QString> &others)
{
    QStringList scopes;
    for (const QString &line : QString(vcd).split('\n')) {
        const QStringList words = line.split(' ');
        if (line.startsWith("$scope"))
            scopes += QString(words.at(2)).replace('(', '[').replace(')', ']');
        else if (line.startsWith("$upscope"))
            scopes.removeLast();
        if (scopes.value(0) != top)
            continue;
        const QString scope = (QStringList(path) + scopes.mid(1)).join('.') + '.';
        if (line.startsWith("$comment") || line.startsWith("$var integer"))
            others += scope + words.at(line.startsWith("$var") ? 4 : 1);
        else if (line.startsWith("$var"))
            names += scope + (words.at(4).contains('[') ? QString(words.at(4)).replace("[", " [")
                                                        : ranged(words.at(4), 0, 0));
    }
}

const Hierachy *find(const Hierachy *node, const QString &path)
{
    if (node->fullPathName() == path)
        return node;
    for (const Hierachy *child : node->children) {
        if (const Hierachy *found = find(child, path))
            return found;
    }
    return nullptr;
}

} // namespace

class OtherToolsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sameNames_data()
    {
        QTest::addColumn<QStringList>("files");
        QStringList files = QDir(TEST_DESIGNS).entryList({"*.v", "types.sv"});
        files.removeAll("encrypted.v"); // which Yosys refuses
        for (const QString &file : files)
            row(qPrintable(file), QStringList(TEST_DESIGNS "/" + file));
        for (unsigned seed : {1, 2, 3}) {
            const QString name = QString("generated%1.v").arg(seed);
            row(qPrintable(name), QStringList(m_sources.write(name, generatedDesign(seed))));
        }
        QStringList example{EXAMPLES "/soc/rtl/soc_types.sv", EXAMPLES "/soc/rtl/soc_pkg.sv"};
        for (const QFileInfo &file : QDir(EXAMPLES "/soc/rtl").entryInfoList({"*.v", "*.sv", "*.vhd"})) {
            if (!example.contains(file.filePath()))
                example += file.filePath();
        }
        row("example", example);
    }
    void sameNames()
    {
        QFETCH(QStringList, files);
        DesignInput input = m_sources.input(files);
        input.top = files.size() > 1 ? "soc" : "top";
        input.includePaths += EXAMPLES "/soc/rtl";
        const std::unique_ptr<RtlNetlist> netlist = netlistOf(input);
        QVERIFY(netlist);

        QString vhdl;
        QByteArray translated;
        for (const QString &file : files.filter(".vhd")) {
            vhdl += contents(file);
            translated +=
                runTool(m_sources.path(), "ghdl", {"--synth", "--std=08", "--out=verilog", file, "-e"},
                        QProcess::SeparateChannels);
            files.removeAll(file);
        }
        files += m_sources.write("vhdl.v", translated);
        const QSet<QString> known = knownToYosys("-I" + input.includePaths.first() + ' ' + files.join(' '),
                                                 input.top, input.top, vhdl);

        Names ours;
        addOurs(netlist->topHierarchy, vhdl, ours);
        const QSet<QString> shown(ours.all.begin(), ours.all.end());
        QVERIFY2(ours.all.size() >= 5, "too few names to tell anything");
        QCOMPARE(ours.all.size(), shown.size()); // none twice
        compare(known, shown, ours.mayBeUnknown);
    }

    // What GHDL simulates, where it has the generics and the components that the project has.
    void sameAsGhdl_data()
    {
        textColumns("project", "node", "libraries", "run", "noVhdl", "notShown");
        row("three libraries", "stream", "stream_top",
            "common common/common_pkg common/synchroniser common/tdp_ram\n"
            "axis axis/axis_pkg axis/parity axis/skid axis/pipeline\napp app/control app/control_rtl "
            "app/stream_top",
            "--work=app stream_top", "^$", "\\.(none|(\\w+_)?users?|sim_cycles)$");
        row("both languages", "mixed", "mixed_top/summing", "vendorcells CELLS\nwork vhdl/accumulator",
            "--work=work accumulator -gWIDTH=12 -gNOTES=twelve", "\\.detector\\.", "^$");
    }
    void sameAsGhdl()
    {
        auto [project, node, libraries, run, noVhdl, notShown] =
            textCells("project", "node", "libraries", "run", "noVhdl", "notShown");
        const QString cells = m_sources.write(
            "cells.vhd",
            "library ieee; use ieee.std_logic_1164.all; package components is\n"
            "component BUFCE is port (I, CE : in std_logic; O : out std_logic); end component; end;");
        for (const QString &library : libraries.split('\n')) {
            const QStringList words = library.split(' ');
            QStringList arguments{"-a", "--std=08", "-frelaxed", "--work=" + words.first()};
            for (const QString &file : words.mid(1))
                arguments += file == "CELLS" ? cells : PROJECTS "/" + project + '/' + file + ".vhd";
            runTool(m_sources.path(), "ghdl", arguments);
        }
        runTool(m_sources.path(), "ghdl",
                QStringList{"--elab-run", "--std=08", "-frelaxed"} + run.split(' ') +
                    QStringList{"--stop-time=0ns", "--stop-delta=0", "--vcd=names.vcd"});
        QSet<QString> dumped, others;
        addDumped(m_sources.read("names.vcd"), run.split(' ').at(1), asYosysWritesIt(node), dumped, others);
        QVERIFY(dumped.size() + others.size() > 5);

        const std::unique_ptr<RtlNetlist> netlist = open(project);
        QVERIFY(netlist);
        QVERIFY(find(netlist->topHierarchy, node));
        Names ours;
        addOurs(find(netlist->topHierarchy, node), QString(), ours);
        QSet<QString> shown, members;
        for (const QString &name : ours.all) {
            QString whole =
                name.toLower().section(' ', 0, 0); // which alone the dump names of a record or array
            while (!whole.isEmpty() && !others.contains(whole))
                whole.truncate(qMax(0, qMax(whole.lastIndexOf('.'), whole.lastIndexOf('['))));
            if (!whole.isEmpty())
                members += whole;
            else if (!name.contains(QRegularExpression(noVhdl)))
                shown += name.toLower();
        }
        compare(dumped, shown);
        for (const QString &whole : others - members)
            QVERIFY2(whole.contains(QRegularExpression(notShown)), qPrintable(whole));
    }

    // Of the mixed design it takes no interfaces and no arrays as ports.
    void sameAsYosys_data()
    {
        textColumns("node", "module", "file");
        row("vendor's components", "mixed_top/clock_tree", "clockgen", "rtl/clockgen.v");
        row("Verilog in VHDL", "mixed_top/summing/detector", "edge_detect", "lib/edge_detect.v");
    }
    void sameAsYosys()
    {
        auto [node, module, file] = textCells("node", "module", "file");
        const QSet<QString> known =
            knownToYosys("-DSYNTHESIS " PROJECTS "/mixed/" + file, module, asYosysWritesIt(node));
        const std::unique_ptr<RtlNetlist> netlist = open("mixed");
        QVERIFY(netlist);
        QVERIFY(find(netlist->topHierarchy, node));
        Names ours;
        addOurs(find(netlist->topHierarchy, node), QString(), ours);
        const QSet<QString> shown(ours.all.begin(), ours.all.end());
        QVERIFY(!known.isEmpty());
        compare(known, shown);
    }

private:
    std::unique_ptr<RtlNetlist> open(const QString &name) const
    {
        return netlistOf(projectInput(PROJECTS "/" + name + '/' + name + ".jexprj"));
    }

    // The names of a module and of what is below it, as if it were the instance `path`.
    QSet<QString> knownToYosys(const QString &sources, const QString &module, const QString &path,
                               const QString &vhdl = QString()) const
    {
        const QString script = "read_verilog -sv %1; hierarchy -top %2; proc; write_json yosys.json";
        runTool(m_sources.path(), "yosys", {"-q", "-p", script.arg(sources, module)});
        QSet<QString> known;
        YosysDesign(m_sources.read("yosys.json"), vhdl).add(module, path, known);
        return known;
    }
    static void compare(const QSet<QString> &known, const QSet<QString> &shown,
                        const QSet<QString> &mayBeUnknown = {})
    {
        QCOMPARE(QStringList((known - shown).values()).join('\n'), QString());
        QCOMPARE(QStringList((shown - known - mayBeUnknown).values()).join('\n'), QString());
    }

    Sources m_sources;
};

QTEST_GUILESS_MAIN(OtherToolsTest)
#include "tst_othertools.moc"
