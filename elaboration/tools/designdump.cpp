#include "elaboration/tools/designdump.h"

#include <QFile>
#include <QRegExp>

#include "elaboration/reading/verilatornames.h"

#include <limits>

namespace QUARRY {
namespace {

// "    1:2:1: PIN 0x563aaa9527c0 {c2bk} @dt=0@  clk ->UNLINKED": depth 3, branch 1, file c, line 2,
// column "bk" in base 26.
struct DumpLine
{
    int depth = 0;
    int branch = 0;
    QByteArray kind;
    QByteArray file;
    int line = 0;
    int column = 0;
    QByteArray attributes; // between the place and the name
    QByteArray name;
    QByteArray rest;
};

bool isLetter(char c)
{
    return c >= 'a' && c <= 'z';
}

// Digits that stand for no line or column, as in a text that is damaged, give 0.
int placeNumber(const QByteArray &digits, int base, char zero)
{
    qint64 number = 0;
    for (const char digit : digits) {
        number = number * base + (digit - zero);
        if (number < 0 || number > std::numeric_limits<int>::max())
            return 0;
    }
    return int(number);
}

void readPlace(const QByteArray &place, DumpLine &out)
{
    int fileEnd = 0;
    while (fileEnd < place.size() && isLetter(place.at(fileEnd)))
        ++fileEnd;
    int lineEnd = fileEnd;
    while (lineEnd < place.size() && !isLetter(place.at(lineEnd)))
        ++lineEnd;
    out.file = place.left(fileEnd);
    out.line = placeNumber(place.mid(fileEnd, lineEnd - fileEnd), 10, '0');
    out.column = placeNumber(place.mid(lineEnd), 26, 'a');
}

bool readLine(const QByteArray &text, DumpLine &out)
{
    const int pathEnd = text.indexOf(": ");
    const int placeStart = text.indexOf('{');
    const int placeEnd = text.indexOf('}', placeStart);
    if (pathEnd < 0 || placeStart < pathEnd || placeEnd < 0)
        return false;
    const QByteArray path = text.left(pathEnd).trimmed();
    out.depth = path.count(':') + 1;
    out.branch = path.mid(path.lastIndexOf(':') + 1).toInt();
    const int kindEnd = text.indexOf(' ', pathEnd + 2);
    out.kind = text.mid(pathEnd + 2, kindEnd - pathEnd - 2);
    readPlace(text.mid(placeStart + 1, placeEnd - placeStart - 1), out);
    const int nameStart = text.indexOf("  ", placeEnd + 1);
    if (nameStart < 0) {
        out.attributes = text.mid(placeEnd + 1);
        return true;
    }
    out.attributes = text.mid(placeEnd + 1, nameStart - placeEnd - 1);
    const QByteArray tail = text.mid(nameStart + 2).trimmed();
    const int nameEnd = tail.indexOf(' ');
    out.name = nameEnd < 0 ? tail : tail.left(nameEnd);
    out.rest = nameEnd < 0 ? QByteArray() : tail.mid(nameEnd + 1);
    return true;
}

class DumpReader
{
public:
    explicit DumpReader(DesignDump &dump) : m_dump(dump) {}

    void take(const QByteArray &text)
    {
        DumpLine line;
        if (!readLine(text, line))
            return;
        if (line.depth == 1) {
            startModule(line);
            return;
        }
        if (!m_inModule)
            return;
        if (line.kind == "CELL")
            startCell(line);
        else if (line.kind == "VAR")
            startVariable(line);
        else if (m_variableDepth && line.kind == "IFACEREFDTYPE" && line.depth > m_variableDepth)
            noteInterface(line);
        else if (line.kind == "MODPORT" && line.depth == 2)
            m_dump.modules.last().ports.append(QString::fromLatin1(line.name));
        else if (m_cellDepth && line.depth > m_cellDepth)
            takeConnection(line);
        else
            m_cellDepth = 0;
    }

private:
    void startModule(const DumpLine &line)
    {
        m_cellDepth = m_variableDepth = 0;
        m_inModule = line.kind == "MODULE" || line.kind == "IFACE";
        if (!m_inModule)
            return;
        DumpModule module;
        module.name = decodedVerilatorName(line.name.constData());
        m_dump.modules.append(module);
    }

    // "u0 -> NOTFOUNDMODULE 0x563aaa95f050 {c2bf}  prim  L3 [1ps]" or "ue ->UNLINKED:bb__024x"
    void startCell(const DumpLine &line)
    {
        DumpCell cell;
        cell.file = QString::fromLatin1(line.file);
        cell.line = line.line;
        cell.owner = m_dump.modules.size() - 1;
        cell.resolved = line.rest.startsWith("-> MODULE") || line.rest.startsWith("-> IFACE");
        QByteArray target;
        if (line.rest.startsWith("->UNLINKED:")) {
            target = line.rest.mid(int(qstrlen("->UNLINKED:")));
        } else {
            const int nameStart = line.rest.indexOf("  ", line.rest.indexOf('}')) + 2;
            const QByteArray tail = line.rest.mid(nameStart);
            target = tail.left(tail.indexOf(' '));
        }
        cell.target = decodedVerilatorName(target.constData());
        m_cellDepth = line.depth;
        m_variableDepth = 0;
        m_dump.cells.append(cell);
    }

    void startVariable(const DumpLine &line)
    {
        m_cellDepth = 0;
        m_variableDepth = line.depth;
        m_variable = QString::fromLatin1(line.name);
        m_variable.remove(QLatin1String("__Viftop"));
        if (line.depth == 2 && line.rest.contains(" PORT"))
            m_dump.modules.last().ports.append(decodedVerilatorName(line.name.constData()));
        else if (line.depth == 2 && line.rest.contains("GPARAM"))
            m_dump.modules.last().parameters.append(decodedVerilatorName(line.name.constData()));
    }

    // "@dt=0@ if=ifc mp=m -> IFACE ..."
    void noteInterface(const DumpLine &line)
    {
        QRegExp words(QLatin1String("if=(\\S+)(?: mp=(\\S+))?"));
        if (words.indexIn(QString::fromLatin1(line.attributes)) < 0)
            return;
        QString type = words.cap(1);
        if (!words.cap(2).isEmpty())
            type += QLatin1Char('.') + words.cap(2);
        m_dump.modules.last().interfaces.insert(m_variable, type);
    }

    void takeConnection(const DumpLine &line)
    {
        DumpCell &cell = m_dump.cells.last();
        if (line.depth == m_cellDepth + 1) {
            m_pins = line.branch == 2 ? &cell.parameters : &cell.ports;
            if (line.kind == "PIN")
                startPin(line);
            else
                m_pins = nullptr;
        } else if (m_pins) {
            takeExpression(line);
        }
    }

    void startPin(const DumpLine &line)
    {
        DumpPin pin;
        if (!line.name.startsWith("->"))
            pin.name = decodedVerilatorName(line.name.constData());
        pin.line = line.line;
        pin.column = line.column;
        QRegExp numbered(QLatin1String("__(?:pin|param)Number(\\d+)"));
        if (numbered.exactMatch(pin.name)) {
            pin.position = numbered.cap(1).toInt();
            pin.name.clear();
        }
        m_pins->append(pin);
    }

    void takeExpression(const DumpLine &line)
    {
        DumpPin &pin = m_pins->last();
        const int level = line.depth - m_cellDepth - 1;
        if (level == 1) {
            pin.isType = line.kind.endsWith("DTYPE");
            m_plain = line.kind == "PARSEREF" || line.kind == "DOT" || line.kind == "SELBIT";
        }
        if (!m_plain || line.kind != "PARSEREF" || level > 2)
            return;
        if (pin.reference.isEmpty())
            pin.reference = QString::fromLatin1(line.name);
        else if (line.branch == 2)
            pin.member = QString::fromLatin1(line.name);
    }

    DesignDump &m_dump;
    bool m_inModule = false;
    int m_cellDepth = 0; // 0 outside cells
    int m_variableDepth = 0;
    bool m_plain = false;
    QString m_variable;
    QList<DumpPin> *m_pins = nullptr;
};

} // namespace

bool readDesignDump(const QString &treeFile, DesignDump &dump)
{
    QFile file(treeFile);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    DumpReader reader(dump);
    while (!file.atEnd())
        reader.take(file.readLine());
    return true;
}

} // namespace QUARRY
