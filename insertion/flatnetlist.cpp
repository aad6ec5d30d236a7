#include "insertion/flatnetlist.h"

#include <QCoreApplication>
#include <QFile>

#include <algorithm>

#include "elaboration/tools/scratchdir.h"
#include "insertion/rtlildesign.h"

namespace Insertion {
namespace {

int constantOf(char digit)
{
    switch (digit) {
    case '0':
        return FlatNetlist::Zero;
    case '1':
        return FlatNetlist::One;
    case 'z':
        return FlatNetlist::Open;
    default:
        return FlatNetlist::Unknown;
    }
}

void appendNumber(quint32 number, int width, std::vector<int> &bits)
{
    for (int i = 0; i < width; ++i)
        bits.push_back(i < 32 && (number >> i) & 1 ? FlatNetlist::One : FlatNetlist::Zero);
}

// "8'01xz", "8'x", "3"
bool appendConstant(const QByteArray &word, std::vector<int> &bits)
{
    const int tick = word.indexOf('\'');
    bool isNumber = true;
    if (tick < 0) {
        appendNumber(quint32(word.toInt(&isNumber)), 32, bits);
        return isNumber;
    }
    const int width = word.left(tick).toInt();
    for (int bit = 0; bit < width; ++bit) {
        const int at = qMax(tick + 1, word.size() - 1 - bit);
        const bool isWritten = word.size() - 1 - bit > tick;
        const int constant = at < word.size() ? constantOf(word.at(at)) : FlatNetlist::Unknown;
        bits.push_back(isWritten || constant != FlatNetlist::One ? constant : FlatNetlist::Zero);
    }
    return true;
}

bool isNumberStart(char c)
{
    return (c >= '0' && c <= '9') || c == '-';
}

} // namespace

// One line after the other. Wires stand before cells, and both before assignments.
struct FlatNetlist::Reader
{
    explicit Reader(FlatNetlist &netlist) : flat(netlist) {}

    bool take(const QByteArray &line)
    {
        if (!isInside) {
            isTop = isTop || line == "attribute \\top 1";
            isBlackBox = isBlackBox || line == "attribute \\blackbox 1";
            if (line.startsWith("module ")) {
                isInside = isTop && !isDone;
                if (!isInside && !isBlackBox)
                    others.insert(line.mid(7));
                isTop = isBlackBox = false;
            }
            return true;
        }
        if (line == "end") {
            isInside = false;
            return isDone = true;
        }
        const QByteArray text = line.trimmed();
        return isInCell ? takeOfCell(text) : takeOfModule(text);
    }

    bool takeOfModule(const QByteArray &text)
    {
        if (text.startsWith("attribute \\init "))
            init = text.mid(16);
        else if (text.startsWith("wire "))
            addWire(text.split(' '));
        else if (text.startsWith("memory "))
            flat.m_memories.insert(text.mid(text.lastIndexOf(' ') + 1), text.left(text.lastIndexOf(' ')));
        else if (text.startsWith("cell "))
            startCell(text.split(' '));
        else if (text.startsWith("connect "))
            return connect(text.mid(8));
        else if (text.startsWith("process "))
            return false;
        return true;
    }

    void addWire(const QList<QByteArray> &words)
    {
        Wire wire;
        wire.firstBit = flat.bitCount();
        for (int i = 1; i + 1 < words.size(); ++i) {
            if (words[i] == "width")
                wire.width = words[++i].toInt();
            else if (words[i] == "input" || words[i] == "output" || words[i] == "inout")
                wire.port = words[i];
        }
        wire.init.swap(init);
        for (int bit = 0; bit < wire.width; ++bit)
            flat.m_parents.push_back(flat.bitCount());
        flat.m_constants.resize(flat.m_parents.size());
        flat.m_wires.insert(words.last(), wire);
    }

    void startCell(const QList<QByteArray> &words)
    {
        Cell cell;
        cell.type = flat.pooled(words.value(1));
        cell.name = words.value(2);
        flat.m_cells.push_back(cell);
        parameters.clear();
        isInCell = true;
    }

    bool takeOfCell(const QByteArray &text)
    {
        Cell &cell = flat.m_cells.back();
        if (text == "end") {
            cell.parameters = flat.pooled(parameters);
            isInCell = false;
        } else if (text.startsWith("parameter ")) {
            if (!isPlaceInText(cell, text))
                parameters += text + '\n';
        } else if (text.startsWith("connect ")) {
            const int end = text.indexOf(' ', 8);
            std::vector<int> bits;
            if (!flat.parse(text.mid(end + 1), bits))
                return false;
            Port port;
            port.name = flat.pooled(text.mid(8, end - 8));
            port.first = int(flat.m_cellBits.size());
            port.width = int(bits.size());
            flat.m_cellBits.insert(flat.m_cellBits.end(), bits.begin(), bits.end());
            cell.ports.push_back(port);
        }
        return true;
    }

    // The first words of a memory are written in the order of these numbers, which count all that Yosys ever
    // made.
    bool isPlaceInText(const Cell &cell, const QByteArray &parameter) const
    {
        return parameter.startsWith("parameter \\PRIORITY ") && flat.text(cell.type).startsWith("$meminit");
    }

    // Two signals of equal width, one behind the other.
    bool connect(const QByteArray &text)
    {
        int at = 0;
        std::vector<int> left, right;
        if (!flat.parsePart(text, at, left) || !flat.parse(text.mid(at), right) ||
            left.size() != right.size())
            return false;
        flat.join(left, right);
        return true;
    }

    FlatNetlist &flat;
    // Whether something is left of the hierarchy, in which nothing would be compared.
    bool isFlat() const
    {
        return std::none_of(flat.m_cells.begin(), flat.m_cells.end(),
                            [this](const Cell &cell) { return others.contains(flat.text(cell.type)); });
    }

    QByteArray init, parameters;
    QSet<QByteArray> others; // modules that are no black boxes
    bool isTop = false, isBlackBox = false, isInside = false, isInCell = false, isDone = false;
};

bool FlatNetlist::read(const QString &path, QString *error)
{
    QFile file(path);
    Reader reader(*this);
    bool isGood = QUARRY::isPlainFile(path) && file.open(QIODevice::ReadOnly);
    while (isGood && !file.atEnd()) {
        QByteArray line = file.readLine();
        line.chop(line.endsWith('\n') ? 1 : 0);
        isGood = reader.take(line);
    }
    isGood = isGood && reader.isDone && reader.isFlat();
    if (!isGood)
        *error = QCoreApplication::translate(
            "Insertion::FlatNetlist",
            "What Yosys read back of the design could not be understood, so nothing is proven. If the "
            "disk is full, make room on it.");
    return isGood;
}

int FlatNetlist::netOf(int bit) const
{
    if (bit < 0)
        return bit;
    int root = bit;
    while (m_parents[size_t(root)] != root)
        root = m_parents[size_t(root)];
    while (m_parents[size_t(bit)] != root) {
        const int next = m_parents[size_t(bit)];
        m_parents[size_t(bit)] = root;
        bit = next;
    }
    return root;
}

int FlatNetlist::pooled(const QByteArray &text)
{
    const auto found = m_poolNumbers.constFind(text);
    if (found != m_poolNumbers.constEnd())
        return *found;
    m_pool.push_back(text);
    m_poolNumbers.insert(text, int(m_pool.size()) - 1);
    return int(m_pool.size()) - 1;
}

bool FlatNetlist::parse(QByteArray line, std::vector<int> &bits) const
{
    int at = 0;
    return parsePart(line, at, bits) && line.mid(at).trimmed().isEmpty();
}

// "\name", "\name [3]", "\name [7:4]", "8'0000zzzz", or "{ first second }" with the higher bits first.
bool FlatNetlist::parsePart(const QByteArray &text, int &at, std::vector<int> &bits) const
{
    while (at < text.size() && text.at(at) == ' ')
        ++at;
    if (at == text.size())
        return false;
    if (text.at(at) == '{') {
        std::vector<std::vector<int>> parts;
        for (++at; at < text.size() && text.mid(at, 2) != " }";) {
            parts.emplace_back();
            if (!parsePart(text, at, parts.back()))
                return false;
        }
        at += 2;
        for (auto part = parts.rbegin(); part != parts.rend(); ++part)
            bits.insert(bits.end(), part->begin(), part->end());
        return true;
    }
    int end = text.at(at) == '"' ? endOfQuotes(text, at) : text.indexOf(' ', at);
    end = end < 0 ? text.size() : end;
    const QByteArray word = text.mid(at, end - at);
    at = end;
    if (word.at(0) == '"') {
        for (int i = word.size() - 2; i > 0; --i)
            appendNumber(uchar(word.at(i)), 8, bits);
        return true;
    }
    if (isNumberStart(word.at(0)))
        return appendConstant(word, bits);
    const auto wire = m_wires.constFind(word);
    if (wire == m_wires.constEnd())
        return false;
    int high = wire->width - 1, low = 0;
    if (text.mid(at, 2) == " [") {
        end = text.indexOf(']', at);
        if (end < 0)
            return false;
        const QList<QByteArray> range = text.mid(at + 2, end - at - 2).split(':');
        high = range.first().toInt();
        low = range.last().toInt();
        at = end + 1;
    }
    if (low < 0 || high < low || high >= wire->width)
        return false;
    for (int bit = low; bit <= high; ++bit)
        bits.push_back(wire->firstBit + bit);
    return true;
}

void FlatNetlist::join(const std::vector<int> &left, const std::vector<int> &right)
{
    for (size_t i = 0; i < left.size(); ++i) {
        const int a = netOf(left[i]), b = netOf(right[i]);
        if (a >= 0 && b >= 0 && a != b) {
            m_parents[size_t(qMax(a, b))] = qMin(a, b);
            m_constants[size_t(qMin(a, b))] |= m_constants[size_t(qMax(a, b))];
        } else if (a >= 0 && b < 0) {
            m_constants[size_t(a)] |= uchar(1 << -b);
        } else if (b >= 0 && a < 0) {
            m_constants[size_t(b)] |= uchar(1 << -a);
        }
    }
}

} // namespace Insertion
