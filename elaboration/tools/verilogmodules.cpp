#include "elaboration/tools/verilogmodules.h"

#include <cctype>

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

// Whether "](" stands in it, which is rare; blanks may stand in between.
bool mayHaveInstanceArray(const QByteArray &verilog)
{
    for (int at = verilog.indexOf(']'); at >= 0; at = verilog.indexOf(']', at + 1)) {
        int next = at + 1;
        while (next < verilog.size() && std::isspace(uchar(verilog.at(next))))
            ++next;
        if (next < verilog.size() && (verilog.at(next) == '(' || verilog.at(next) == '/'))
            return true;
    }
    return false;
}

// The bracket that opens what the one at `i` closes; -1 when none of as many tokens does.
int opening(const VerilogTokens &tokens, int i, int most)
{
    int depth = 0;
    for (int at = i; at >= 0 && i - at < most; --at) {
        depth += tokens.isAny(at, {")", "]"}) ? 1 : tokens.isAny(at, {"(", "["}) ? -1 : 0;
        if (depth == 0)
            return at;
    }
    return -1;
}

} // namespace

QStringList droppedDimensions(const QByteArray &verilog)
{
    const int mostInBrackets = 64, mostParameters = 500, mostSentences = 100;
    QStringList sentences;
    if (!mayHaveInstanceArray(verilog))
        return sentences;
    const VerilogTokens tokens(verilog);
    int line = 1, counted = 0;
    for (int i = 1; i < tokens.size() && sentences.size() < mostSentences; ++i) {
        if (!tokens.is(i, "(") || !tokens.is(i - 1, "]"))
            continue;
        int dimensions = 0;
        int name = i - 1;
        for (; dimensions < mostInBrackets && tokens.is(name, "]"); ++dimensions)
            name = opening(tokens, name, mostInBrackets) - 1;
        int module = name - 1;
        if (dimensions < 2 || !tokens.isName(name))
            continue;
        if (tokens.is(module, ")")) // "leaf #(4) u [1:0] [1:0] ("
            module = opening(tokens, module, mostParameters) - 2;
        if (!tokens.isName(module))
            continue;
        line += tokens.text().mid(counted, tokens.at(name).start - counted).count('\n');
        counted = tokens.at(name).start;
        sentences.append(QString::number(line) +
                         QLatin1String(": Only the first dimension of this array of instances of module ") +
                         QString::fromUtf8(tokens.word(module)) +
                         QLatin1String(" is read, so that the others are not shown and connections may seem "
                                       "to be too wide. Write it as generate loops."));
    }
    return sentences;
}

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
