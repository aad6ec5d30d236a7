#include "insertion/attaching.h"

#include <QRegularExpression>

#include "host/filetypes.h"
#include "insertion/analyzer.h"

namespace Insertion {
namespace {

TE::FileType languageOf(const Tap &tap)
{
    return TE::fileTypeFromName(tap.file);
}

// A round of a loop and a member of a structure are written as they are, anything else that is no plain name
// is escaped.
QByteArray verilogName(const QString &name)
{
    static const QRegularExpression plain(
        "^[A-Za-z_][\\w$]*(\\[-?\\d+\\])*(\\.[A-Za-z_][\\w$]*(\\[-?\\d+\\])*)*$");
    return (plain.match(name).hasMatch() ? name : '\\' + name + ' ').toUtf8();
}

QByteArray tied(const Analyzer &analyzer)
{
    QByteArray text;
    for (const QByteArray &name : analyzer.controlInputs())
        text += ",\n    ." + name + "(1'b0)";
    for (const QByteArray &name : analyzer.controlOutputs())
        text += ",\n    ." + name + "()";
    return text;
}

QByteArray connections(const Analyzer &analyzer, const QByteArray &before)
{
    QByteArray text;
    const QList<Tap> &taps = analyzer.taps().taps();
    for (int i = 0; i < taps.size(); ++i) {
        QByteArray path = verilogPath(taps.at(i));
        if (path.isEmpty())
            path = '{' + QByteArray::number(taps.at(i).width()) + "{1'bx}} /* in " +
                   TE::sourceType(languageOf(taps.at(i)))->name + " */";
        else
            path.prepend(before);
        text += (i == 0 ? "    .tap_" : ",\n    .tap_") + QByteArray::number(i) + '(' + path + ')';
    }
    return "/* verilator lint_off PINCONNECTEMPTY */\n" + text + tied(analyzer) +
           ");\n/* verilator lint_on PINCONNECTEMPTY */\n";
}

} // namespace

QByteArray verilogPath(const Tap &tap)
{
    if (!TE::verilogSuffix(languageOf(tap)))
        return QByteArray();
    QByteArray path;
    for (const QString &scope : tap.path)
        path += verilogName(scope) + '.';
    return path + verilogName(tap.shortName);
}

QByteArray bindText(const Analyzer &analyzer, const QString &topModule)
{
    return "// Attaches the analyzer of cores.v to the untouched design, for simulators that know \"bind\".\n"
           "bind " +
           verilogName(topModule) + " jex_cores " + analyzer.parametersUnarmed() + "jex_cores (\n" +
           connections(analyzer, QByteArray());
}

QByteArray probeText(const Analyzer &analyzer, const QString &instance)
{
    QByteArray text =
        "// Attaches the analyzer of cores.v to the untouched design: a second top module that looks\n"
        "// into the design where the test bench has it.\n";
    if (instance.isEmpty())
        text +=
            "`ifndef JEX_INSTANCE\n`define JEX_INSTANCE tb.dut // name it by -DJEX_INSTANCE=...\n`endif\n";
    return text + "module jex_probe;\njex_cores " + analyzer.parametersUnarmed() + "cores (\n" +
           connections(analyzer, instance.isEmpty() ? "`JEX_INSTANCE." : instance.toUtf8() + '.') +
           "endmodule\n";
}

} // namespace Insertion
