#include "bench/largedesign.h"

#include <QDir>
#include <QFile>

using QUARRY::ModuleDecl;
using QUARRY::NetDecl;

namespace {

const int clusterModules = 37; // each is in the top module twice
const int leafModules = 962;
const int leaves = 2925; // instances in all clusters
const int bitsOfModule = 333;
const int busesOfModule = 13; // of eight bits

QString numbered(const char *text, int number, int digits)
{
    return QLatin1String(text) + QString::number(number).rightJustified(digits, QLatin1Char('0'));
}

// Words that a designer uses, padded with a number to the length.
QString netName(int number, int length)
{
    static const char *const words[] = {"fifo_ready_", "valid_", "wr_addr_",  "rd_data_", "state_",
                                        "grant_",      "irq_",   "err_flag_", "timeout_", "sel_"};
    const char *word = words[number * 7 % 10];
    return numbered(word, number, length - int(qstrlen(word)));
}

// `lead` is what stands in front of the module's short names in most of its full names.
ModuleDecl module(const QString &name, int lead, int bits)
{
    ModuleDecl decl;
    decl.name = name;
    NetDecl net;
    net.name = QStringLiteral("clk");
    net.info.file = QStringLiteral("/design/rtl/") + name + QStringLiteral(".v");
    net.info.line = 1;
    decl.nets += net;
    const int singles = bits - 8 * busesOfModule;
    for (int i = 1; i < singles + busesOfModule; ++i) {
        net.isBus = i >= singles;
        net.left = net.isBus ? 7 : 0;
        net.info.line = 1 + i;
        net.name = netName(i, 46 - lead - (net.isBus ? 5 : 0));
        decl.nets += net;
    }
    return decl;
}

} // namespace

LargeDesign::LargeDesign()
{
    const int rest = 1000000 - 2 * clusterModules * bitsOfModule - leaves * bitsOfModule;
    Module top{module(topName(), 4, rest), {}};
    QList<Module> clusters;
    for (int i = 0; i < clusterModules; ++i) {
        clusters += Module{module(numbered("cluster", i, 2), 17, bitsOfModule), {}};
        for (int copy = 0; copy < 2; ++copy)
            top.instances += Instance{numbered("u_cluster_", 2 * i + copy, 2), 1 + i};
    }
    // Some clusters hold one leaf more than others, and most leaves are in two clusters.
    int leaf = 0;
    for (int i = 0; i < leaves / 2; ++i, ++leaf)
        clusters[i % clusterModules].instances +=
            Instance{numbered("u_core_", i, 4), 1 + clusterModules + leaf % leafModules};
    m_modules = QList<Module>{top} + clusters;
    for (int i = 0; i < leafModules; ++i)
        m_modules += Module{module(numbered("core", i, 4), 29, bitsOfModule), {}};
    m_modules.first().instances += Instance{QStringLiteral("u_core_9999"), 1 + clusterModules};
}

void LargeDesign::addChildren(QUARRY::NetlistBuilder &builder, QUARRY::Hierachy *node, int module) const
{
    for (const Instance &instance : m_modules.at(module).instances)
        addChildren(builder, builder.addInstance(node, instance.name, instance.module), instance.module);
}

std::unique_ptr<QUARRY::RtlNetlist> LargeDesign::netlist() const
{
    QUARRY::NetlistBuilder builder;
    for (const Module &module : m_modules)
        builder.addModule(module.decl);
    addChildren(builder, builder.addTop(topName(), 0), 0);
    return std::unique_ptr<QUARRY::RtlNetlist>(builder.take());
}

QByteArray LargeDesign::verilog(const Module &module) const
{
    QByteArray text = "module " + module.decl.name.toLatin1() + "(input clk);\n";
    QByteArray last = "clk";
    for (int i = 1; i < module.decl.nets.size(); ++i) {
        const NetDecl &net = module.decl.nets.at(i);
        const QByteArray name = net.name.toLatin1();
        text += (net.isBus ? "  wire [7:0] " : "  wire ") + name + ";\n";
        if (i % 8 == 0)
            text += "  assign " + name + " = " + last + ";\n";
        last = name;
    }
    text += "  assign " + last + " = 8'h0f;\n";
    for (const Instance &instance : module.instances)
        text += "  " + m_modules.at(instance.module).decl.name.toLatin1() + ' ' + instance.name.toLatin1() +
                "(.clk(clk));\n";
    return text + "endmodule\n";
}

QStringList LargeDesign::writeVerilog(const QString &dir) const
{
    QStringList paths;
    for (int first = 0; first < m_modules.size(); first += 100) {
        QFile file(QDir(dir).filePath(numbered("part", first / 100, 2) + QLatin1String(".v")));
        if (!file.open(QIODevice::WriteOnly))
            return QStringList();
        for (const Module &module : m_modules.mid(first, 100)) {
            if (file.write(verilog(module)) < 0)
                return QStringList();
        }
        paths += file.fileName();
    }
    return paths;
}
