#include "elaboration/tools/verilogmodules.h"

#include "elaboration/tools/verilogtokens.h"

namespace QUARRY {
namespace {

struct Module
{
    QByteArray name;
    TextRange range;
};

std::vector<Module> modulesOf(const QByteArray &verilog)
{
    std::vector<Module> modules;
    const VerilogTokens tokens(verilog);
    int start = -1;
    for (int i = 0; i < tokens.size(); ++i) {
        if (tokens.at(i).define)
            continue;
        if (start < 0 && tokens.isAny(i, {"module", "macromodule"}) && !tokens.is(i - 1, "extern")) {
            start = i;
        } else if (start >= 0 && tokens.is(i, "endmodule")) {
            const int name = tokens.isAny(start + 1, {"automatic", "static"}) ? start + 2 : start + 1;
            const int last = tokens.is(i + 1, ":") ? qMin(i + 2, tokens.size() - 1) : i; // with its label
            modules.push_back({tokens.word(name), {tokens.at(start).start, tokens.at(last).end}});
            start = -1;
        }
    }
    return modules;
}

} // namespace

QByteArray moduleAt(const QByteArray &verilog, int line)
{
    int start = 0; // of the line
    for (int i = 1; i < line; ++i) {
        start = verilog.indexOf('\n', start) + 1;
        if (start == 0)
            return QByteArray(); // a source can say of itself that it is anywhere
    }
    int end = verilog.indexOf('\n', start);
    end = end < 0 ? verilog.size() : end;
    for (const Module &module : modulesOf(verilog)) {
        if (module.range.start <= end && start < module.range.end)
            return module.name;
    }
    return QByteArray();
}

bool hasInstanceOf(const QByteArray &verilog, const QByteArray &module)
{
    const VerilogTokens tokens(verilog);
    for (int i = 0; i < tokens.size(); ++i) {
        if (tokens.is(i, module.constData()) && (tokens.isName(i + 1) || tokens.is(i + 1, "#")) &&
            !tokens.isAny(i - 1, {"module", "macromodule", "automatic", "static", ":"}))
            return true;
    }
    return false;
}

bool blankModules(QByteArray &verilog, const QSet<QByteArray> &names)
{
    bool changed = false;
    for (const Module &module : modulesOf(verilog)) {
        if (!names.contains(module.name))
            continue;
        blank(verilog, module.range);
        changed = true;
    }
    return changed;
}

} // namespace QUARRY
