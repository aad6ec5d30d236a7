#include "bench/widedesign.h"

#include <QDir>
#include <QFile>

#include "model/netlist/netlistbuilder.h"

using namespace QUARRY;

namespace {

NetDecl single(const QString &name)
{
    NetDecl net;
    net.name = name;
    return net;
}

} // namespace

QString WideDesign::cell(int number)
{
    return QStringLiteral("u_cell_%1").arg(number, 6, 10, QLatin1Char('0'));
}

QString WideDesign::flag(int number)
{
    return QStringLiteral("flag_%1").arg(number, 6, 10, QLatin1Char('0'));
}

std::unique_ptr<RtlNetlist> WideDesign::netlist() const
{
    ModuleDecl flat{QStringLiteral("flat"), {}};
    for (int i = 0; i < width; ++i)
        flat.nets << single(flag(i));
    NetlistBuilder builder;
    const int top = builder.addModule({topName(), {single(QStringLiteral("clk"))}});
    const int leaf = builder.addModule(
        {QStringLiteral("leaf"), {single(QStringLiteral("clk")), single(QStringLiteral("irq_7"))}});
    const int flags = builder.addModule(flat);
    Hierachy *root = builder.addTop(topName(), top);
    for (int i = 0; i < width; ++i)
        builder.addInstance(root, cell(i), leaf);
    builder.addInstance(root, QStringLiteral("u_flat"), flags);
    return std::unique_ptr<RtlNetlist>(builder.take());
}

QString WideDesign::writeVerilog(const QString &dir) const
{
    QString text =
        QStringLiteral("module leaf(input clk);\n  reg irq_7;\n  always @(posedge clk) irq_7 <= !irq_7;\n"
                       "endmodule\nmodule flat;\n");
    for (int i = 0; i < width; ++i)
        text += QStringLiteral("  reg ") + flag(i) + QStringLiteral(";\n");
    text += QStringLiteral("endmodule\nmodule top(input clk);\n  flat u_flat();\n");
    for (int i = 0; i < width; ++i)
        text += QStringLiteral("  leaf ") + cell(i) + QStringLiteral("(.clk(clk));\n");
    text += QStringLiteral("endmodule\n");
    const QString path = QDir(dir).filePath(QStringLiteral("wide.v"));
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(text.toLatin1()) == text.size() ? path : QString();
}
