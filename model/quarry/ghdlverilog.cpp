#include "model/quarry/ghdlverilog.h"

#include <QRegExp>

namespace QUARRY {
namespace {

const char name[] = "(\\\\\\S+ |\\w+)"; // \escaped name with its blank, or a plain one

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

// Replaces the word where it is no pin (".word(") and does not stand first in the line.
void replaceWord(QString &line, const QString &word, const QString &by)
{
    QRegExp whole(QLatin1String("[^.\\w\\\\]") + QRegExp::escape(word) + QLatin1String("(?!\\w)"));
    int from = 0;
    while (from < line.size() && line.at(from).isSpace())
        ++from;
    for (int at = whole.indexIn(line, from); at >= 0; at = whole.indexIn(line, at + 1))
        line.replace(at + 1, word.size(), by);
}

// The extended identifier u2_\o[1]\ becomes the escaped name \u2_o[1] with its closing blank.
void escapeExtendedNames(QString &line)
{
    QRegExp extended(QLatin1String("(\\w*)\\\\([^\\\\\\s]+)\\\\"));
    for (int at = extended.indexIn(line); at >= 0; at = extended.indexIn(line, at + 1))
        line.replace(at, extended.matchedLength(),
                     QLatin1Char('\\') + extended.cap(1) + extended.cap(2) + QLatin1Char(' '));
}

QString declaredName(const QString &line)
{
    QRegExp declaration(
        QLatin1String("^\\s*\\(?(?:input|output|inout|wire|reg|localparam)\\s+(?:\\[[^\\]]*\\] )?") +
        QLatin1String(name) + QLatin1String("\\s*[;,)=].*$"));
    return declaration.exactMatch(line) ? declaration.cap(1).trimmed() : QString();
}

void escapeKeywords(QStringList &lines)
{
    QStringList reserved;
    for (const QString &line : lines) {
        const QString declared = declaredName(line);
        if (isKeyword(declared) && !reserved.contains(declared))
            reserved.append(declared);
    }
    QRegExp pin(QLatin1String("^    \\.(\\w+)\\("));
    for (QString &line : lines) {
        for (const QString &word : reserved)
            replaceWord(line, word, QLatin1Char('\\') + word + QLatin1Char(' '));
        if (pin.indexIn(line) == 0 && isKeyword(pin.cap(1)))
            line.replace(pin.pos(1), pin.cap(1).size(), QLatin1Char('\\') + pin.cap(1) + QLatin1Char(' '));
    }
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
        if (declaredName(lines.at(i)) != wire)
            continue;
        if (isDeclared)
            lines[i].clear();
        isDeclared = true;
    }
}

// The wires "u0_q" that GHDL makes for the outputs of instances, connected or not.
QStringList outputWires(const QStringList &lines)
{
    QRegExp start(QLatin1String("^  (?:.* |  )") + QLatin1String(name) + QLatin1String("\\s*\\($"));
    QRegExp pin(QLatin1String("^    \\.") + QLatin1String(name) + QLatin1String("\\(") + QLatin1String(name) +
                QLatin1String("?\\).*$"));
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

// They get the form of GHDL's other wires, by which these are known and not shown. Where the user has a
// signal of the same name, GHDL declares it twice; then it stays.
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
            replaceWord(line, wires.at(i), made);
    }
}

int headerEnd(const QStringList &lines)
{
    for (int i = 0; i < lines.size(); ++i) {
        if (lines.at(i).endsWith(QLatin1Char(';')))
            return i;
    }
    return lines.size() - 1;
}

bool hasNoBody(const QStringList &lines)
{
    for (int i = headerEnd(lines) + 1; i < lines.size() - 1; ++i) {
        if (!lines.at(i).trimmed().isEmpty())
            return false;
    }
    return true;
}

// "  PRIM l1 (" or "  PRIM #(": the name of the module
QString instantiated(const QString &line)
{
    QRegExp start(QLatin1String("^  ") + QLatin1String(name) + QLatin1String("\\s*(?:#\\(|") +
                  QLatin1String(name) + QLatin1String("\\s*\\().*$"));
    const bool isInstance = start.exactMatch(line) && !isKeyword(start.cap(1));
    return isInstance ? start.cap(1).trimmed() : QString();
}

QString spelledAs(const QString &word, const QStringList &spellings)
{
    if (spellings.contains(word))
        return word;
    for (const QString &spelling : spellings) {
        if (spelling.compare(word, Qt::CaseInsensitive) == 0)
            return spelling;
    }
    return word;
}

// The entity behind "sub_8" or "leaf_2_11f6ad8e...": name, generics and a hash.
QString entityOf(const QString &module, const QHash<QString, QString> &entities)
{
    QString stem = module.toLower();
    while (!entities.contains(stem) && stem.contains(QLatin1Char('_')))
        stem.truncate(stem.lastIndexOf(QLatin1Char('_')));
    return entities.value(stem, module);
}

} // namespace

int GhdlVerilog::find(const QString &module) const
{
    for (int i = 0; i < m_modules.size(); ++i) {
        if (m_modules.at(i).name == module)
            return i;
    }
    return -1;
}

QString GhdlVerilog::add(const QByteArray &verilog, const QHash<QString, QString> &entities,
                         const QSet<QString> &components)
{
    QString last;
    Module module;
    for (QString line : QString::fromLatin1(verilog).split(QLatin1Char('\n'))) {
        if (line.startsWith(QLatin1String("module "))) {
            module = Module();
            module.name = line.mid(7).section(QRegExp(QLatin1String("[ (;]")), 0, 0);
        }
        if (module.name.isEmpty() || line.startsWith(QLatin1String("  /*")))
            continue;
        escapeExtendedNames(line);
        module.lines.append(line);
        if (line == QLatin1String("endmodule")) {
            last = module.name;
            take(module, entities, components);
            module = Module();
        }
    }
    return last;
}

void GhdlVerilog::take(Module module, const QHash<QString, QString> &entities,
                       const QSet<QString> &components)
{
    const bool isBlackBox = components.contains(module.name.toLower()) && hasNoBody(module.lines);
    if (isBlackBox || contains(module.name))
        return;
    escapeKeywords(module.lines);
    markOutputWires(module.lines);
    m_names.insert(module.name, entityOf(module.name, entities));
    m_modules.append(module);
}

QStringList GhdlVerilog::ports(const QString &module) const
{
    QStringList names;
    const int index = find(module);
    if (index < 0)
        return names;
    const QStringList &lines = m_modules.at(index).lines;
    const int end = headerEnd(lines);
    for (int i = 1; i <= end; ++i) {
        const QString port = declaredName(lines.at(i));
        if (!port.isEmpty())
            names.append(port);
    }
    return names;
}

bool GhdlVerilog::present(const QString &module, const QString &asName, const QStringList &ports,
                          const QStringList &parameters)
{
    const int index = find(module);
    if (index < 0)
        return false;
    Module copy = m_modules.at(index);
    copy.name = asName;
    copy.lines[0].replace(7, module.size(), asName);
    for (const QString &port : this->ports(module)) {
        const QString spelling = spelledAs(port, ports);
        for (int i = 1; spelling != port && i < copy.lines.size(); ++i)
            replaceWord(copy.lines[i], port, spelling);
    }
    if (!parameters.isEmpty() && !copy.lines.join(QString()).contains(QLatin1String("#(parameter "))) {
        QStringList declared;
        for (const QString &parameter : parameters)
            declared.append(QLatin1String("parameter \\") + parameter + QLatin1String(" = 0"));
        copy.lines[0].insert(7 + asName.size(),
                             QLatin1String(" #(") + declared.join(QLatin1String(", ")) + QLatin1Char(')'));
    }
    if (copy.name == module && copy.lines == m_modules.at(index).lines)
        return false;
    m_names.insert(asName, m_names.value(module));
    const int place = find(asName);
    if (place >= 0)
        m_modules[place] = copy;
    else
        m_modules.append(copy);
    return true;
}

bool GhdlVerilog::renameInstances(const QString &component, const QString &module, const QStringList &ports)
{
    bool changed = false;
    QRegExp pin(QLatin1String("^    \\.") + QLatin1String(name) + QLatin1String("\\("));
    for (Module &owner : m_modules) {
        bool inside = false;
        for (int i = headerEnd(owner.lines) + 1; i < owner.lines.size(); ++i) {
            QString &line = owner.lines[i];
            const QString before = line;
            if (!inside && instantiated(line) == component) {
                inside = true;
                line.replace(2, component.size(), module);
            } else if (inside && pin.indexIn(line) == 0) {
                line.replace(pin.pos(1), pin.cap(1).size(), spelledAs(pin.cap(1), ports));
            }
            changed = changed || line != before;
            inside = inside && !line.endsWith(QLatin1String(");"));
        }
    }
    return changed;
}

void GhdlVerilog::remove(const QString &module)
{
    const int index = find(module);
    if (index >= 0)
        m_modules.removeAt(index);
}

bool GhdlVerilog::isInstantiated(const QString &module) const
{
    for (const Module &owner : m_modules) {
        for (const QString &line : owner.lines) {
            if (instantiated(line) == module)
                return true;
        }
    }
    return false;
}

QByteArray GhdlVerilog::sources() const
{
    QString text;
    for (const Module &module : m_modules)
        text += module.lines.join(QLatin1String("\n")) + QLatin1Char('\n');
    return text.toUtf8();
}

} // namespace QUARRY
