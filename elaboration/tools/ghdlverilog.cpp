#include "elaboration/tools/ghdlverilog.h"

#include <QRegExp>

#include <unordered_set>

#include "host/utf8.h"

namespace QUARRY {
namespace {

const int longestName = 60; // Verilator puts a hash in the place of a name of more than 127 characters

bool startsWith(std::string_view line, std::string_view start)
{
    return line.substr(0, start.size()) == start;
}

bool isEnd(std::string_view line)
{
    return !line.empty() && line.back() == ';';
}

// The entity behind "sub_8" or "leaf_2_11f6ad8e...": name, generics and a hash.
QString entityOf(const QString &module, const QHash<QString, QString> &entities)
{
    QString stem = module.toLower();
    while (!entities.contains(stem) && stem.contains(QLatin1Char('_')))
        stem.truncate(stem.lastIndexOf(QLatin1Char('_')));
    return entities.value(stem, module);
}

// The lines of a module, told apart by what they are part of: the head with the ports, an instance of another
// module, or anything else.
class Lines
{
public:
    enum Kind { Head, Start, Pin, Other };

    Kind kindOf(std::string_view line)
    {
        m_label = GhdlWord();
        if (m_inHead) {
            m_inHead = !isEnd(line);
            return Head;
        }
        if (m_inInstance) {
            m_inInstance = !isEnd(line);
            if (line.size() > 4 && startsWith(line, "    ") && line[4] != '.')
                takeName(line);
            return Pin;
        }
        m_inInstance = isStart(line);
        return m_inInstance ? Start : Other;
    }

    const GhdlWord &module() const { return m_module; } // of the line that starts an instance
    const GhdlWord &label() const { return m_label; }   // of an instance, in the line that has it
    const std::string &instance() const { return m_name; }

private:
    // "  PRIM l1 (" or "  PRIM #("
    bool isStart(std::string_view line)
    {
        if (line.size() < 4 || !startsWith(line, "  ") || line[2] == ' ' || line.back() != '(')
            return false;
        GhdlWords words(line);
        if (!words.next(m_module) || (line[m_module.begin] != '\\' && isVerilogKeyword(m_module.name)))
            return false;
        m_name = words.next(m_label) ? std::string(m_label.name) : std::string();
        return !m_name.empty() || line.find("#(") != std::string_view::npos;
    }

    void takeName(std::string_view line)
    {
        GhdlWords words(line);
        if (words.next(m_label))
            m_name = std::string(m_label.name);
    }

    bool m_inHead = true;
    bool m_inInstance = false;
    GhdlWord m_module, m_label;
    std::string m_name; // empty behind "PRIM #(", until the parameters are over
};

// "u0_q" for "    .q(u0_q)," in u0, which GHDL declares even where nothing is connected; else empty.
std::string outputWire(std::string_view line, const std::string &instance)
{
    GhdlWords words(line);
    GhdlWord pin, net;
    if (instance.empty() || !words.next(pin) || !pin.isPin)
        return std::string();
    std::string made = instance + '_' + std::string(pin.name);
    return !words.next(net) || net.name == made ? made : std::string();
}

// What the names of a module must become: words that Verilog reserves, and the wires that GHDL makes for
// outputs of instances, which get the form of its other wires, by which these are known and not shown. Where
// the user has a signal of the same name, GHDL declares it twice; then it stays.
class Scan
{
public:
    explicit Scan(const std::vector<std::string> &lines)
    {
        Lines kinds;
        std::vector<std::string> wires;
        for (const std::string &line : lines) {
            const Lines::Kind kind = kinds.kindOf(line);
            if (kind == Lines::Pin || kind == Lines::Start)
                takeInstance(line, kind, kinds, wires);
            else
                takeDeclaration(line, kind == Lines::Head);
        }
        for (size_t i = 0; i < wires.size(); ++i) {
            if (m_signals.count(wires[i]))
                declaredTwice.insert(wires[i]);
            else
                renames[wires[i]] = 'n' + std::to_string(1000000 + i) + "_o";
        }
    }

    GhdlRenames renames, pinRenames;
    std::vector<std::string> ports;
    std::unordered_set<std::string> declaredTwice;

private:
    void takeInstance(const std::string &line, Lines::Kind kind, const Lines &kinds,
                      std::vector<std::string> &wires)
    {
        GhdlWords words(line);
        GhdlWord word;
        if (kind == Lines::Pin && words.next(word) && word.isPin && isVerilogKeyword(word.name) &&
            line[word.begin] != '\\')
            pinRenames[std::string(word.name)] = escapedGhdlName(word.name);
        std::string wire = kind == Lines::Pin ? outputWire(line, kinds.instance()) : std::string();
        if (!wire.empty())
            wires.push_back(std::move(wire));
    }

    void takeDeclaration(const std::string &line, bool isHead)
    {
        const std::string_view name = ghdlDeclaredName(line);
        if (isVerilogKeyword(name) && line[size_t(name.data() - line.data()) - 1] != '\\')
            renames[std::string(name)] = escapedGhdlName(name);
        if (isHead && !name.empty())
            ports.emplace_back(name);
        const std::string_view signal = ghdlSignal(line);
        if (!signal.empty())
            m_signals.insert(std::string(signal));
    }

    std::unordered_set<std::string> m_signals; // the user's
};

void dropSecondDeclarations(std::vector<std::string> &lines, std::unordered_set<std::string> names)
{
    std::unordered_set<std::string> seen;
    for (std::string &line : lines) {
        const std::string name(ghdlDeclaredName(line));
        if (names.count(name) && !seen.insert(name).second)
            line.clear();
    }
}

// "/rtl/top.vhd:6" of "  /* /rtl/top.vhd:6:3  */"
std::string placeIn(std::string_view comment)
{
    const size_t end = comment.rfind(':');
    return end == comment.npos || end < 5 ? std::string() : std::string(comment.substr(5, end - 5));
}

// "n12_o"
bool isOwnName(const QString &name)
{
    static const QRegExp pattern(QLatin1String("n\\d+(_[a-z]+)?"));
    return name.startsWith(QLatin1Char('n')) && name.size() > 1 && name.at(1).isDigit() &&
           QRegExp(pattern).exactMatch(name);
}

} // namespace

const VerilogMaker GhdlVerilog::maker = {"GHDL", "VHDL", isOwnName, true, true};

QString GhdlVerilog::spelledAs(const QString &word, const QStringList &spellings)
{
    if (spellings.contains(word))
        return word;
    for (const QString &spelling : spellings) {
        if (spelling.compare(word, Qt::CaseInsensitive) == 0)
            return spelling;
    }
    return word;
}

const GhdlVerilog::Module *GhdlVerilog::find(const QString &module) const
{
    const auto found = m_index.find(module);
    return found == m_index.end() ? nullptr : &m_modules[size_t(found.value())];
}

// "output [7:0] q," of that port; empty when it has none.
std::string GhdlVerilog::headLine(const Module &module, const std::string &port)
{
    Lines kinds;
    for (const std::string &line : module.lines) {
        if (kinds.kindOf(line) != Lines::Head)
            break;
        if (ghdlDeclaredName(line) == port)
            return line.substr(line.find_first_not_of(" ("));
    }
    return std::string();
}

void GhdlVerilog::put(const Module &module)
{
    const auto found = m_index.find(module.name);
    if (found != m_index.end()) {
        m_modules[size_t(found.value())] = module;
        return;
    }
    m_index.insert(module.name, int(m_modules.size()));
    m_modules.push_back(module);
}

void GhdlVerilog::start(const QByteArray &verilog, const GhdlNames &names, const QString &asName)
{
    m_text = QString::fromLatin1(verilog).toUtf8();
    m_at = 0;
    m_given = names;
    m_asName = asName;
    m_last.clear();
    const int top = qMax(0, m_text.lastIndexOf("\nmodule ") + 1);
    const QByteArray line = m_text.mid(top, m_text.indexOf('\n', top) - top);
    m_top = line.startsWith("module ") ? QString::fromUtf8(line.mid(7).trimmed()) : QString();
}

bool GhdlVerilog::takeSome()
{
    Module module;
    while (m_at < m_text.size()) {
        const int end = m_text.indexOf('\n', m_at);
        const std::string_view line(m_text.constData() + m_at,
                                    size_t((end < 0 ? m_text.size() : end) - m_at));
        m_at += int(line.size()) + 1;
        if (startsWith(line, "module ")) {
            module = Module();
            module.name = QUtil::fromUtf8(line.substr(7)).trimmed();
        }
        if (startsWith(line, "  /*") && !m_given.twins.isEmpty())
            module.places[module.lines.size()] = placeIn(line);
        if (module.name.isEmpty() || startsWith(line, "  /*"))
            continue;
        module.lines.push_back(readableGhdlLine(line));
        if (line != "endmodule")
            continue;
        take(module);
        return true;
    }
    m_text.clear();
    return false;
}

bool GhdlVerilog::hasTwin(const QString &written) const
{
    return !m_given.twins.isEmpty() && m_given.twins.contains(entityOf(written, m_given.entities).toLower());
}

// That of most of its statements: those of functions of packages may be from anywhere.
QString GhdlVerilog::libraryOf(const Module &module) const
{
    const QSet<QString> candidates = m_given.twins.value(entityOf(module.name, m_given.entities).toLower());
    QHash<QString, int> votes;
    QString most;
    for (const std::string &place : module.places) {
        const QString library =
            m_given.libraries.value(QUtil::fromUtf8(place).section(QLatin1Char(':'), 0, -2));
        if (!candidates.isEmpty() && !candidates.contains(library))
            continue;
        if (++votes[library] > votes.value(most) || most.isEmpty())
            most = library;
    }
    return most;
}

QString GhdlVerilog::targetOf(const QString &written, const std::string &place, const QString &library) const
{
    return hasTwin(written) ? m_given.targets.value(QUtil::fromUtf8(place), library) : QString();
}

// The module without a statement that an instance with these pins means, in a library where none is known;
// empty when there is none.
QString GhdlVerilog::emptyTwin(const QString &written, const QString &library,
                               const std::vector<std::string> &lines, size_t instance)
{
    if (m_emptyTwins.isEmpty() || !hasTwin(written) || contains(moduleName(written, library)))
        return QString();
    for (const QString &name : m_emptyTwins.value(written)) {
        const std::vector<std::string> &ports = m_modules[size_t(m_index.value(name))].ports;
        size_t pins = 0;
        for (; pins < ports.size() && instance + 1 + pins < lines.size(); ++pins) {
            GhdlWords words(lines[instance + 1 + pins]);
            GhdlWord pin;
            if (!words.next(pin) || !pin.isPin || pin.name != ports[pins])
                break;
        }
        if (pins == ports.size() && m_libraries.value(name, library) == library) {
            m_libraries.insert(name, library);
            return name;
        }
    }
    return QString();
}

// Short, and the same whenever GHDL writes it.
QString GhdlVerilog::moduleName(const QString &given, const QString &library)
{
    if (given == m_top && !m_asName.isEmpty())
        return m_asName;
    const QString written = library.isEmpty() ? given : given + QLatin1String("__") + library;
    if (written.size() <= longestName)
        return written;
    QString &name = m_short[written];
    if (name.isEmpty()) {
        const QString entity = entityOf(given, m_given.entities);
        name = entity.left(longestName / 2) + QLatin1String("__g") + QString::number(m_short.size());
    }
    return name;
}

void GhdlVerilog::take(Module &module)
{
    const QString written = module.name;
    const QString entity = entityOf(written, m_given.entities);
    Scan scan(module.lines);
    const bool isHollow = m_given.hollow.contains(entity.toLower());
    const bool isBlackBox = m_given.components.contains(written.toLower());
    const QString library = m_given.twins.isEmpty() ? QString() : libraryOf(module);
    const bool isEmptyTwin = hasTwin(written) && library.isEmpty() && written != m_top;
    module.name = moduleName(written, isEmptyTwin ? QLatin1Char('e') +
                                                        QString::number(m_emptyTwins.value(written).size())
                                      : hasTwin(written) ? library
                                                         : QString());
    module.ports = scan.ports;
    dropSecondDeclarations(module.lines, std::move(scan.declaredTwice));
    Lines kinds;
    std::vector<std::string> lines;
    bool anyBody = false;
    for (size_t i = 0; i < module.lines.size(); ++i) {
        const std::string &line = module.lines[i];
        const bool isFirst = lines.empty();
        const Lines::Kind kind = kinds.kindOf(line);
        anyBody = anyBody || (kind != Lines::Head && !line.empty() && line != "endmodule");
        if (isHollow && kind != Lines::Head && line != "endmodule")
            continue;
        if (m_given.undriven.contains(QUtil::fromUtf8(ghdlSignal(line)).toLower()) &&
            line.find("'bX;") != line.npos)
            continue;
        lines.push_back(renamedGhdlLine(line, scan.renames));
        std::string &out = lines.back();
        const GhdlWord &label = kinds.label();
        if (isVerilogKeyword(label.name) && line[label.begin] != '\\')
            out.replace(label.begin, label.name.size(), escapedGhdlName(label.name));
        if (isFirst) {
            out = "module " + QUtil::toUtf8(module.name);
        } else if (kind == Lines::Pin) {
            out = renamedGhdlPin(out, scan.pinRenames);
        } else if (kind == Lines::Start) {
            ++m_instances;
            const GhdlWord &word = kinds.module();
            const QString given = QUtil::fromUtf8(word.name);
            const QString inLibrary = targetOf(given, module.places.value(i), library);
            const QString empty = emptyTwin(given, inLibrary, module.lines, i);
            const QString target = empty.isEmpty() ? moduleName(given, inLibrary) : empty;
            module.instantiated.insert(target);
            if (target != given)
                out.replace(word.begin, word.end - word.begin, QUtil::toUtf8(target));
        }
    }
    module.lines = std::move(lines);
    if (written == m_top)
        m_last = module.name;
    if (contains(module.name) || (isBlackBox && !anyBody))
        return;
    m_names.insert(module.name, entity);
    if (isEmptyTwin)
        m_emptyTwins[written].append(module.name);
    else if (hasTwin(written))
        m_libraries.insert(module.name, library);
    put(module);
}

bool GhdlVerilog::present(const QString &module, const QString &asName, const QStringList &ports)
{
    const Module *found = find(module);
    if (!found)
        return false;
    Module copy = *found;
    GhdlRenames renames;
    for (std::string &port : copy.ports) {
        const std::string spelling = QUtil::toUtf8(spelledAs(QUtil::fromUtf8(port), ports));
        if (spelling != port)
            renames[port] = spelling;
        port = spelling;
    }
    if (module == asName && renames.empty())
        return false;
    copy.name = asName;
    copy.lines[0] = "module " + QUtil::toUtf8(asName);
    for (size_t i = 1; i < copy.lines.size() && !renames.empty(); ++i)
        copy.lines[i] = renamedGhdlLine(copy.lines[i], renames);
    const Module *known = find(asName);
    if (known && known->lines == copy.lines)
        return false;
    m_names.insert(asName, m_names.value(module));
    put(copy);
    return true;
}

bool GhdlVerilog::renameInstances(const QString &component, const QString &module, const QStringList &ports)
{
    bool changed = false;
    for (Module &owner : m_modules) {
        if (!owner.instantiated.contains(component))
            continue;
        Lines kinds;
        bool inside = false;
        for (std::string &line : owner.lines) {
            const std::string before = line;
            const Lines::Kind kind = kinds.kindOf(line);
            if (kind == Lines::Start) {
                const GhdlWord word = kinds.module();
                inside = QUtil::fromUtf8(word.name) == component;
                if (inside)
                    line.replace(word.begin, word.end - word.begin, QUtil::toUtf8(module));
            } else if (kind == Lines::Pin && inside) {
                GhdlWords words(line);
                GhdlWord pin;
                if (words.next(pin) && pin.isPin)
                    line =
                        renamedGhdlPin(line, {{std::string(pin.name),
                                               QUtil::toUtf8(spelledAs(QUtil::fromUtf8(pin.name), ports))}});
            }
            changed = changed || line != before;
        }
        owner.instantiated.remove(component);
        owner.instantiated.insert(module);
    }
    return changed;
}

void GhdlVerilog::remove(const QString &module)
{
    const auto found = m_index.find(module);
    if (found == m_index.end())
        return;
    m_modules.erase(m_modules.begin() + found.value());
    m_index.clear();
    for (size_t i = 0; i < m_modules.size(); ++i)
        m_index.insert(m_modules[i].name, int(i));
}

QSet<QString> GhdlVerilog::instantiated() const
{
    QSet<QString> all;
    for (const Module &module : m_modules)
        all += module.instantiated;
    return all;
}

QByteArray GhdlVerilog::sources() const
{
    QByteArray all;
    for (const Module &module : m_modules) {
        for (const std::string &line : module.lines)
            all.append(line.data(), int(line.size())).append('\n');
    }
    return all;
}

} // namespace QUARRY
