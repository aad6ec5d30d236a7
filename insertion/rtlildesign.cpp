#include "insertion/rtlildesign.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include <algorithm>
#include <limits>

#include "elaboration/tools/scratchdir.h"

namespace Insertion {
namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(Insertion::RtlilDesign)
};

qint64 endOfLine(const QByteArray &text, qint64 from)
{
    const int end = text.indexOf('\n', int(from));
    return end < 0 ? text.size() : end;
}

bool startsAt(const QByteArray &text, qint64 place, const char *words)
{
    return qstrncmp(text.constData() + place, words, qstrlen(words)) == 0;
}

QByteArray slice(const QByteArray &text, qint64 begin, qint64 end)
{
    return text.mid(int(begin), int(end - begin));
}

// As above, but valid as long as the text, and up to its end when that is less than 0.
QByteArray part(const QByteArray &text, qint64 begin, qint64 end)
{
    return QByteArray::fromRawData(text.constData() + begin, int((end < 0 ? text.size() : end) - begin));
}

QByteArray lastWord(const QByteArray &text, qint64 end)
{
    return slice(text, text.lastIndexOf(' ', int(end - 1)) + 1, end);
}

// "  wire width 8 upto output 7 \led"
void readWire(const QByteArray &line, RtlilModule &module)
{
    const QList<QByteArray> words = line.trimmed().split(' ');
    int width = 1;
    bool isPort = false;
    for (int i = 1; i + 1 < words.size(); ++i) {
        if (words[i] == "width")
            width = words[++i].toInt();
        else if (words[i] == "input" || words[i] == "output" || words[i] == "inout") {
            isPort = true;
            module.ports = qMax(module.ports, words[++i].toInt());
        }
    }
    if (isPort)
        module.portNames.push_back(words.last());
    if (words.last().startsWith('\\'))
        module.widths.insert(words.last(), width);
}

bool isPathCharacter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '/' ||
           c == '.' || c == '_' || c == '-';
}

int endOfWord(const QByteArray &line, int from)
{
    const int end = line.indexOf(' ', from);
    return end < 0 ? line.size() : end;
}

// In the word that begins there.
void shortenPaths(QByteArray &line, int word)
{
    for (int path = line.indexOf("$/", word); path >= 0 && path < endOfWord(line, word);
         path = line.indexOf("$/", path + 1)) {
        int end = path + 1;
        while (end < line.size() && isPathCharacter(line.at(end)))
            ++end;
        line.remove(path + 1, line.lastIndexOf('/', end - 1) - path);
    }
}

// Where the type of a cell ends, which stays; 0 in other lines.
int endOfType(const QByteArray &line)
{
    return line.startsWith("  cell ") ? line.indexOf(' ', 7) : 0;
}

// The names that Yosys makes: "$add$rtl/fifo.v:35$232_Y" becomes "\_add$fifo.v:35$232_Y"; the number at
// its end keeps it apart from others. Simulators take a name that begins with "$" for a function of their
// own.
void renameMade(QByteArray &line)
{
    for (int at = line.indexOf(' ', endOfType(line)); at >= 0; at = line.indexOf(' ', at + 1)) {
        if (startsAt(line, at, " \"")) {
            at = endOfQuotes(line, at + 1) - 1;
        } else if (startsAt(line, at, " $")) {
            line.replace(at + 1, 1, "\\_");
            shortenPaths(line, at + 1);
        }
    }
    if (line.startsWith("    parameter \\MEMID \"$"))
        line.replace("\"$", "\"\\\\_");
}

// The same in Verilog, where such a name is an escaped one.
void renameMadeInVerilog(QByteArray &line)
{
    for (int at = 0; at < line.size(); ++at) {
        if (line.at(at) == '"') {
            at = endOfQuotes(line, at) - 1;
        } else if (line.at(at) == '\\') {
            if (startsAt(line, at, "\\$")) {
                line.replace(at, 2, "\\_");
                shortenPaths(line, at);
            }
            at = endOfWord(line, at);
        }
    }
}

bool isSourceNote(const QByteArray &text, qint64 begin, qint64 end)
{
    while (begin < end && text.at(int(begin)) == ' ')
        ++begin;
    return startsAt(text, begin, "attribute \\src ");
}

QString unwritten(const QFile &file)
{
    const QString reason = file.error() == QFile::NoError ? QString() : " (" + file.errorString() + ')';
    return Texts::tr("A temporary file could not be written%1. Make room on the disk.").arg(reason);
}

// A tri-state buffer drives a wire of Yosys' own, which is joined to the user's net, and other parts of the
// module read that wire. In Verilog such a joint has a direction: what else drives the net would not be seen.
// So the buffer gets the net itself, and the wire follows it.
class TriStateNets
{
public:
    void readModule(const QByteArray &module)
    {
        m_nets.clear();
        QSet<QByteArray> driven;
        for (int at = module.indexOf("\n  cell $tribuf "); at >= 0;
             at = module.indexOf("\n  cell $tribuf ", at + 1)) {
            const int port = module.indexOf("\n    connect \\Y ", at) + 16;
            driven.insert(slice(module, port, endOfLine(module, port)));
        }
        const QByteArray joint = "\n  connect \\";
        for (int at = driven.isEmpty() ? -1 : module.indexOf(joint); at >= 0;
             at = module.indexOf(joint, at + 1)) {
            const qint64 lineEnd = endOfLine(module, at + 1);
            const QByteArray wire = lastWord(module, lineEnd);
            const int net = at + joint.size() - 1;
            if (driven.contains(wire))
                m_nets.insert(wire, slice(module, net, lineEnd - wire.size() - 1));
        }
    }

    void change(QByteArray &line) const
    {
        if (m_nets.isEmpty() || !line.contains("connect "))
            return;
        const QByteArray indent = line.left(line.indexOf("connect "));
        QList<QByteArray> words = line.trimmed().split(' ');
        const auto joined = m_nets.constFind(words.last());
        if (indent.size() == 2 && joined != m_nets.constEnd() && line.contains("connect " + *joined + ' ')) {
            line = indent + "connect " + words.last() + ' ' + *joined + '\n';
            return;
        }
        for (QByteArray &word : words)
            word = m_nets.value(word, word);
        line = indent + words.join(' ') + '\n';
    }

private:
    QHash<QByteArray, QByteArray> m_nets; // by the wire
};

// "8'z" where the text has "8'x" for both: an open net is not an unknown one. The Verilog tells them apart;
// its last assignments in a module are those of the text, in the same order.
class OpenNets
{
public:
    explicit OpenNets(const QByteArray &verilog) : m_verilog(verilog), m_isNeeded(verilog.contains("'hz"))
    {
        const QByteArray words = "\nmodule ";
        for (int at = m_isNeeded ? verilog.indexOf(words) : -1; at >= 0;
             at = verilog.indexOf(words, at + 1)) {
            int begin = at + words.size(), end = begin;
            if (startsAt(verilog, begin, "\\"))
                end = verilog.indexOf(' ', ++begin);
            else
                end = verilog.indexOf('(', begin);
            m_modules.insert(slice(verilog, begin, end), at);
        }
    }

    void readModule(const QByteArray &text)
    {
        m_line = 0;
        m_assignments.clear();
        QByteArray name = slice(text, 7, endOfLine(text, 0));
        name = name.startsWith('\\') ? name.mid(1) : name;
        const auto module = m_modules.constFind(name);
        if (module == m_modules.constEnd())
            return;
        const QByteArray written = part(m_verilog, *module, m_verilog.indexOf("\nendmodule", *module));
        int at = written.size();
        for (int connections = text.count("\n  connect "); connections > 0 && at > 0; --connections) {
            at = written.lastIndexOf("\n  assign ", at - 1);
            if (at > 0)
                m_assignments.prepend(slice(written, at + 1, endOfLine(written, at + 1)));
        }
    }

    void change(QByteArray &line)
    {
        if (!m_isNeeded || !line.startsWith("  connect "))
            return;
        const QByteArray assignment = m_assignments.value(m_line++);
        if (!assignment.contains("'hz"))
            return;
        static const QRegularExpression ours("(?<= )(\\d+)'([01xz]+)(?= |\n)"),
            theirs("\\b(\\d+)'[hb]([0-9a-fxz]+)");
        auto written = theirs.globalMatch(QString::fromUtf8(assignment));
        QString changed = QString::fromUtf8(line);
        int shift = 0;
        for (auto found = ours.globalMatch(changed); found.hasNext() && written.hasNext();) {
            const QRegularExpressionMatch here = found.next(), there = written.next();
            if (here.captured(1) != there.captured(1) || here.captured(2) != "x" || there.captured(2) != "z")
                continue;
            const QString open(here.captured(1).toInt(), 'z');
            changed.replace(here.capturedStart(2) + shift, 1, open);
            shift += open.size() - 1;
        }
        line = changed.toUtf8();
    }

private:
    const QByteArray &m_verilog;
    const bool m_isNeeded;
    QHash<QByteArray, int> m_modules; // where the line before each begins
    QList<QByteArray> m_assignments;  // of the module, as far as they are assignments of the text
    int m_line = 0;
};

class TextWriter
{
public:
    TextWriter(QFile &file, const QByteArray &verilog) : m_file(file), m_openNets(verilog) {}

    void writeLines(const QByteArray &text, qint64 begin, qint64 end)
    {
        while (begin < end) {
            const qint64 next = qMin(endOfLine(text, begin) + 1, end);
            if (startsAt(text, begin, "module ")) {
                const QByteArray module = part(text, begin, text.indexOf("\nend\n", int(begin)));
                m_triStates.readModule(module);
                m_openNets.readModule(module);
            }
            if (!isSourceNote(text, begin, next)) {
                QByteArray line = slice(text, begin, next);
                m_openNets.change(line);
                m_triStates.change(line);
                renameMade(line);
                write(line);
            }
            begin = next;
        }
    }
    void write(const QByteArray &bytes)
    {
        m_buffer += bytes;
        if (m_buffer.size() > 1 << 20)
            flush();
    }
    bool finish()
    {
        flush();
        return m_isGood && m_file.flush();
    }

private:
    void flush()
    {
        m_isGood = m_isGood && m_file.write(m_buffer) == m_buffer.size();
        m_buffer.clear();
    }

    QFile &m_file;
    TriStateNets m_triStates; // of the module that is written, as the next one
    OpenNets m_openNets;
    QByteArray m_buffer;
    bool m_isGood = true;
};

} // namespace

int endOfQuotes(const QByteArray &text, int begin)
{
    int end = begin + 1;
    while (end < text.size() && text.at(end) != '"')
        end += text.at(end) == '\\' ? 2 : 1;
    return end + 1;
}

bool RtlilDesign::open(const QString &path, QString *error)
{
    m_file.setFileName(path);
    const bool isOpen = QUARRY::isPlainFile(path) && m_file.open(QIODevice::ReadOnly);
    uchar *bytes = isOpen && m_file.size() > 0 && m_file.size() < std::numeric_limits<int>::max()
                       ? m_file.map(0, m_file.size())
                       : nullptr;
    if (!bytes) {
        *error = Texts::tr("Yosys gave no design, or one that is too large.");
        return false;
    }
    const QByteArray all = QByteArray::fromRawData(reinterpret_cast<const char *>(bytes), int(m_file.size()));
    const int verilog = all.indexOf("\n/* Generated by Yosys ") + 1;
    m_text = QByteArray::fromRawData(all.constData(), verilog);
    m_verilog = QByteArray::fromRawData(all.constData() + verilog, all.size() - verilog);
    // Yosys does not look whether it can write.
    if (verilog == 0 || !m_verilog.endsWith("endmodule\n")) {
        *error = Texts::tr("Yosys gave only a part of the design. Make room on the disk.");
        return false;
    }
    RtlilModule *open = nullptr;
    bool isTop = false;
    for (qint64 at = 0; at < m_text.size();) {
        const qint64 end = endOfLine(m_text, at);
        if (startsAt(m_text, at, "attribute \\top 1")) {
            isTop = true;
        } else if (startsAt(m_text, at, "module ")) {
            const QByteArray name = slice(m_text, at + 7, end);
            open = &m_modules[name];
            open->begin = end + 1;
            if (isTop)
                m_top = name;
            isTop = false;
        } else if (open && startsAt(m_text, at, "end")) {
            open->end = at;
            open = nullptr;
        }
        at = end + 1;
    }
    return true;
}

const RtlilModule *RtlilDesign::module(const QByteArray &name)
{
    const auto found = m_modules.find(name);
    if (found == m_modules.end())
        return nullptr;
    if (!found->isRead)
        readModule(*found);
    return &*found;
}

void RtlilDesign::readModule(RtlilModule &module) const
{
    module.isRead = true;
    QByteArray cell, type;
    for (qint64 at = module.begin; at < module.end;) {
        const qint64 end = endOfLine(m_text, at);
        if (startsAt(m_text, at, "  wire ")) {
            readWire(slice(m_text, at, end), module);
        } else if (startsAt(m_text, at, "  memory ")) {
            module.memories.insert(lastWord(m_text, end));
        } else if (startsAt(m_text, at, "  cell ")) {
            const QList<QByteArray> words = slice(m_text, at + 7, end).split(' ');
            type = words.value(0);
            cell = words.value(1);
        } else if (!cell.isEmpty() && startsAt(m_text, at, "  end")) {
            // Gates have types of Yosys' own; "$paramod..." is a module.
            if (m_modules.contains(type) || type.startsWith('\\'))
                module.cells.insert(cell, RtlilCell{type, at});
            cell.clear();
        }
        at = end + 1;
    }
}

bool RtlilDesign::write(const QString &path, QString *error)
{
    std::stable_sort(m_insertions.begin(), m_insertions.end(),
                     [](const auto &a, const auto &b) { return a.first < b.first; });
    QFile file(path);
    file.remove(); // it may be a link
    bool isGood = file.open(QIODevice::WriteOnly | QIODevice::NewOnly);
    if (isGood) {
        TextWriter writer(file, m_verilog);
        qint64 done = 0;
        for (const auto &insertion : m_insertions) {
            writer.writeLines(m_text, done, insertion.first);
            writer.write(insertion.second);
            done = insertion.first;
        }
        writer.writeLines(m_text, done, m_text.size());
        isGood = writer.finish();
    }
    if (!isGood)
        *error = unwritten(file);
    return isGood;
}

bool RtlilDesign::writeVerilog(const QString &path, QString *error) const
{
    QFile file(path);
    file.remove(); // it may be a link
    bool isGood = file.open(QIODevice::WriteOnly | QIODevice::NewOnly);
    for (qint64 at = 0; isGood && at < m_verilog.size();) {
        const qint64 next = qMin<qint64>(endOfLine(m_verilog, at) + 1, m_verilog.size());
        QByteArray line = slice(m_verilog, at, next);
        renameMadeInVerilog(line);
        isGood = file.write(line) == line.size();
        at = next;
    }
    isGood = isGood && file.flush();
    if (!isGood)
        *error = unwritten(file);
    return isGood;
}

} // namespace Insertion
