// The larger designs of tests/elaboration/projects, as their projects have them, against what other tools
// know of the same sources: GHDL's simulator of the VHDL, Yosys of the Verilog that it takes.

#include "tests/elaboration/yosysdesign.h"
#include "tests/support/tablerow.h"

#include "host/designmanager.h"
#include "host/project.h"

#include <QtTest>

#include <memory>

namespace {

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

class ProjectNamesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
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

    // What GHDL simulates, where it has the generics and the components that the project has.
    void sameAsGhdl()
    {
        QFETCH(QString, project);
        QFETCH(QString, node);
        QFETCH(QString, libraries);
        QFETCH(QString, run);
        QFETCH(QString, noVhdl);
        QFETCH(QString, notShown);
        const QString cells = m_sources.write(
            "cells.vhd",
            "library ieee; use ieee.std_logic_1164.all; package components is\n"
            "component BUFCE is port (I, CE : in std_logic; O : out std_logic); end component; end;");
        for (const QString &library : libraries.split('\n')) {
            const QStringList words = library.split(' ');
            QStringList arguments{"-a", "--std=08", "-frelaxed", "--work=" + words.first()};
            for (const QString &file : words.mid(1))
                arguments += file == "CELLS" ? cells : PROJECTS "/" + project + '/' + file + ".vhd";
            runIn(m_sources, "ghdl", arguments);
        }
        runIn(m_sources, "ghdl",
              QStringList{"--elab-run", "--std=08", "-frelaxed"} + run.split(' ') +
                  QStringList{"--stop-time=0ns", "--stop-delta=0", "--vcd=names.vcd"});
        QSet<QString> dumped, others;
        addDumped(m_sources.read("names.vcd"), run.split(' ').at(1), asYosysWritesIt(node), dumped, others);
        QVERIFY(dumped.size() + others.size() > 5);

        const std::unique_ptr<RtlNetlist> netlist = open(project);
        QVERIFY(netlist && find(netlist->topHierarchy, node));
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
        QCOMPARE(QStringList((dumped - shown).values()).join('\n'), QString());
        QCOMPARE(QStringList((shown - dumped).values()).join('\n'), QString());
        for (const QString &whole : others - members)
            QVERIFY2(whole.contains(QRegularExpression(notShown)), qPrintable(whole));
    }

    void sameAsYosys_data()
    {
        textColumns("node", "module", "file");
        row("vendor's components", "mixed_top/clock_tree", "clockgen", "rtl/clockgen.v");
        row("Verilog in VHDL", "mixed_top/summing/detector", "edge_detect", "lib/edge_detect.v");
    }

    // Of the mixed design it takes no interfaces and no arrays as ports.
    void sameAsYosys()
    {
        QFETCH(QString, node);
        QFETCH(QString, module);
        QFETCH(QString, file);
        runIn(m_sources, "yosys",
              {"-q", "-p",
               QString("read_verilog -sv -DSYNTHESIS %1; hierarchy -top %2; proc; write_json yosys.json")
                   .arg(PROJECTS "/mixed/" + file, module)});
        QSet<QString> known;
        YosysDesign(m_sources.read("yosys.json"), QString()).add(module, asYosysWritesIt(node), known);
        const std::unique_ptr<RtlNetlist> netlist = open("mixed");
        QVERIFY(netlist && find(netlist->topHierarchy, node));
        Names ours;
        addOurs(find(netlist->topHierarchy, node), QString(), ours);
        const QSet<QString> shown(ours.all.begin(), ours.all.end());
        QVERIFY(!known.isEmpty());
        QCOMPARE(QStringList((known - shown).values()).join('\n'), QString());
        QCOMPARE(QStringList((shown - known).values()).join('\n'), QString());
    }

private:
    std::unique_ptr<RtlNetlist> open(const QString &name) const
    {
        Core::Project project;
        QString error;
        if (!project.load(PROJECTS "/" + name + '/' + name + ".jexprj", &error))
            qFatal("%s", qPrintable(error));
        Core::ProjectManager::setCurrentProject(&project);
        const DesignInput input =
            designInputFromInfo(TE::TaskEngine::instance()->designManager()->getSourceFileInfo());
        Core::ProjectManager::setCurrentProject(nullptr);
        QStringList messages;
        std::unique_ptr<RtlNetlist> netlist(buildNetlist(input, messages));
        if (!netlist)
            qWarning("%s", qPrintable(messages.join('\n')));
        return netlist;
    }

    Sources m_sources;
};

QTEST_GUILESS_MAIN(ProjectNamesTest)
#include "tst_projectnames.moc"
