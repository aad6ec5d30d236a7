#include "elaboration/tools/ghdltext.h"

#include <QRegExp>

namespace QUARRY {
namespace {

// VHDL names that Verilog reserves; GHDL writes them as they are.
const char *const keywords[] = {
    "always",    "and",       "assign",  "automatic", "begin",      "buf",         "case",      "cell",
    "config",    "deassign",  "default", "defparam",  "design",     "disable",     "edge",      "else",
    "end",       "endmodule", "event",   "for",       "force",      "forever",     "fork",      "function",
    "generate",  "genvar",    "if",      "initial",   "inout",      "input",       "instance",  "integer",
    "join",      "large",     "liblist", "library",   "localparam", "macromodule", "medium",    "module",
    "nand",      "negedge",   "nor",     "not",       "or",         "output",      "parameter", "posedge",
    "primitive", "pulldown",  "pullup",  "real",      "realtime",   "reg",         "release",   "repeat",
    "scalared",  "signed",    "small",   "specify",   "specparam",  "strong0",     "strong1",   "supply0",
    "supply1",   "table",     "task",    "time",      "tran",       "tri",         "tri0",      "tri1",
    "triand",    "trior",     "trireg",  "unsigned",  "use",        "vectored",    "wait",      "wand",
    "weak0",     "weak1",     "while",   "wire",      "wor",        "xnor",        "xor"};

bool isKeyword(const QString &word)
{
    for (const char *keyword : keywords) {
        if (word == QLatin1String(keyword))
            return true;
    }
    return false;
}

bool isUsersSignal(const QStringList &lines, const QString &wire)
{
    for (const QString &line : lines) {
        if (line.startsWith(QLatin1String("  assign ") + wire + QLatin1String(" = ")) &&
            line.endsWith(QLatin1String("// (signal)")))
            return true;
    }
    return false;
}

void dropSecondDeclaration(QStringList &lines, const QString &wire)
{
    bool isDeclared = false;
    for (int i = 0; i < lines.size(); ++i) {
        if (ghdlDeclaredName(lines.at(i)) != wire)
            continue;
        if (isDeclared)
            lines[i].clear();
        isDeclared = true;
    }
}

// The wires "u0_q" that GHDL makes for the outputs of instances, connected or not.
QStringList outputWires(const QStringList &lines)
{
    QRegExp start(QLatin1String("^  (?:.* |  )") + ghdlNameExpression() + QLatin1String("\\s*\\($"));
    QRegExp pin(QLatin1String("^    \\.") + ghdlNameExpression() + QLatin1String("\\(") +
                ghdlNameExpression() + QLatin1String("?\\).*$"));
    const QChar slash = QLatin1Char('\\');
    QString instance;
    QStringList wires;
    for (const QString &line : lines) {
        if (start.exactMatch(line))
            instance = start.cap(1).trimmed().remove(slash);
        if (!pin.exactMatch(line))
            continue;
        const QString made = instance + QLatin1Char('_') + pin.cap(1).trimmed().remove(slash);
        const QString wire = pin.cap(2).trimmed();
        if (wire.isEmpty() || QString(wire).remove(slash) == made)
            wires.append(wire.isEmpty() ? made : wire);
    }
    return wires;
}

} // namespace

QString ghdlNameExpression()
{
    return QLatin1String("(\\\\\\S+ |\\w+)");
}

void replaceGhdlWord(QString &line, const QString &word, const QString &by)
{
    QRegExp whole(QLatin1String("[^.\\w\\\\]") + QRegExp::escape(word) + QLatin1String("(?!\\w)"));
    QRegExp first(QLatin1String("^\\s*\\(?\\w*"));
    first.indexIn(line);
    const int from = first.matchedLength();
    for (int at = whole.indexIn(line, from); at >= 0; at = whole.indexIn(line, at + 1))
        line.replace(at + 1, word.size(), by);
}

void escapeExtendedNames(QString &line)
{
    QRegExp extended(QLatin1String("(\\w*)\\\\([^\\\\]+)\\\\"));
    for (int at = extended.indexIn(line); at >= 0; at = extended.indexIn(line, at + 1)) {
        QString inner = extended.cap(2);
        inner.replace(QLatin1Char(' '), QLatin1Char('_'));
        line.replace(at, extended.matchedLength(),
                     QLatin1Char('\\') + extended.cap(1) + inner + QLatin1Char(' '));
    }
}

QString ghdlDeclaredName(const QString &line)
{
    QRegExp declaration(
        QLatin1String("^\\s*\\(?(?:input|output|inout|wire|reg|localparam)\\s+(?:\\[[^\\]]*\\] )?") +
        ghdlNameExpression() + QLatin1String("\\s*[;,)=].*$"));
    return declaration.exactMatch(line) ? declaration.cap(1).trimmed() : QString();
}

void escapeKeywords(QStringList &lines)
{
    QStringList reserved;
    for (const QString &line : lines) {
        const QString declared = ghdlDeclaredName(line);
        if (isKeyword(declared) && !reserved.contains(declared))
            reserved.append(declared);
    }
    QRegExp pin(QLatin1String("^    \\.(\\w+)\\("));
    for (QString &line : lines) {
        for (const QString &word : reserved)
            replaceGhdlWord(line, word, QLatin1Char('\\') + word + QLatin1Char(' '));
        if (pin.indexIn(line) == 0 && isKeyword(pin.cap(1)))
            line.replace(pin.pos(1), pin.cap(1).size(), QLatin1Char('\\') + pin.cap(1) + QLatin1Char(' '));
    }
}

void markOutputWires(QStringList &lines)
{
    const QStringList wires = outputWires(lines);
    for (int i = 0; i < wires.size(); ++i) {
        if (isUsersSignal(lines, wires.at(i))) {
            dropSecondDeclaration(lines, wires.at(i));
            continue;
        }
        const QString made = QLatin1Char('n') + QString::number(1000000 + i) + QLatin1String("_o");
        for (QString &line : lines)
            replaceGhdlWord(line, wires.at(i), made);
    }
}

int ghdlHeaderEnd(const QStringList &lines)
{
    for (int i = 0; i < lines.size(); ++i) {
        if (lines.at(i).endsWith(QLatin1Char(';')))
            return i;
    }
    return lines.size() - 1;
}

bool hasNoGhdlBody(const QStringList &lines)
{
    for (int i = ghdlHeaderEnd(lines) + 1; i < lines.size() - 1; ++i) {
        if (!lines.at(i).trimmed().isEmpty())
            return false;
    }
    return true;
}

QString ghdlInstantiatedModule(const QString &line)
{
    QRegExp start(QLatin1String("^  ") + ghdlNameExpression() + QLatin1String("\\s*(?:#\\(|") +
                  ghdlNameExpression() + QLatin1String("\\s*\\().*$"));
    const bool isInstance = start.exactMatch(line) && !isKeyword(start.cap(1));
    return isInstance ? start.cap(1).trimmed() : QString();
}

} // namespace QUARRY
