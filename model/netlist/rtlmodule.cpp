#include "model/netlist/rtlmodule.h"

#include "model/netlist/netlistbuilder.h"

#include <algorithm>
#include <cstring>

namespace QUARRY {

namespace {

// Decimal digits of `value` at `out`; gives the end. QString::number() would allocate for every bit.
QChar *writeNumber(QChar *out, int value)
{
    QChar digits[12];
    int count = 0;
    qint64 rest = value < 0 ? -qint64(value) : value;
    do {
        digits[count++] = QLatin1Char(char('0' + rest % 10));
        rest /= 10;
    } while (rest > 0);
    if (value < 0)
        *out++ = QLatin1Char('-');
    while (count > 0)
        *out++ = digits[--count];
    return out;
}

QString compose(const QString *path, const QChar *text, int length, const QChar *range, int rangeLength)
{
    const int lead = path ? path->size() + 1 : 0;
    QString name(lead + length + rangeLength, Qt::Uninitialized);
    QChar *out = name.data();
    if (path) {
        memcpy(out, path->constData(), size_t(lead - 1) * sizeof(QChar));
        out[lead - 1] = QLatin1Char('/');
        out += lead;
    }
    memcpy(out, text, size_t(length) * sizeof(QChar));
    if (rangeLength > 0)
        memcpy(out + length, range, size_t(rangeLength) * sizeof(QChar));
    return name;
}

bool isText(const QChar *a, int aLength, const QChar *b, int bLength)
{
    return aLength == bLength && memcmp(a, b, size_t(aLength) * sizeof(QChar)) == 0;
}

} // namespace

RtlModule::RtlModule(const ModuleDecl &decl) : m_name(decl.name), m_isScope(decl.isScope)
{
    int length = 0;
    for (const NetDecl &net : decl.nets)
        length += net.name.size();
    m_text.reserve(length);
    m_entries.reserve(size_t(decl.nets.size()));
    m_places.reserve(size_t(decl.nets.size()));
    QMultiHash<QString, quint32> kinds; // by type
    quint32 ordinals[2] = {0, 0};
    for (const NetDecl &net : decl.nets) {
        Entry entry;
        entry.textBegin = quint32(m_text.size());
        entry.textLength = quint32(net.name.size());
        entry.isBus = net.isBus;
        entry.excluded = net.excluded;
        entry.left = net.left;
        entry.right = net.right;
        entry.firstSlot = slotCount();
        entry.ordinal = ordinals[net.isBus]++;
        m_text += net.name;
        m_entryOfSlot.insert(m_entryOfSlot.end(), size_t(entry.width()), quint32(m_entries.size()));
        for (int bit : net.excludedBits) {
            if (entry.hasBit(bit))
                m_excludedSlots.push_back(entry.slotOfBit(bit));
        }
        m_entries.push_back(entry);
        m_places.push_back({kindOf(net.info, kinds), net.info.line});
    }
    m_entryOfSlot.shrink_to_fit();
    m_isAscii =
        std::all_of(m_text.constBegin(), m_text.constEnd(), [](QChar c) { return c.unicode() < 128; });
}

// The number of such a kind, which is added unless it is there.
quint32 RtlModule::kindOf(const Declaration &info, QMultiHash<QString, quint32> &kinds)
{
    for (QMultiHash<QString, quint32>::const_iterator it = kinds.constFind(info.type);
         it != kinds.constEnd() && it.key() == info.type; ++it) {
        if (m_kinds[*it].isAlike(info))
            return *it;
    }
    const quint32 number = quint32(m_kinds.size());
    kinds.insert(info.type, number);
    m_kinds.push_back(info);
    m_kinds.back().line = 0;
    return number;
}

int RtlModule::writeRange(const Entry &entry, QChar *out)
{
    QChar *end = out;
    *end++ = QLatin1Char('[');
    end = writeNumber(end, entry.left);
    *end++ = QLatin1Char(':');
    end = writeNumber(end, entry.right);
    *end++ = QLatin1Char(']');
    return int(end - out);
}

QString RtlModule::netName(quint32 slot, const QString *path) const
{
    const Entry &entry = entryOfSlot(slot);
    if (!entry.isBus)
        return compose(path, nameOf(entry), int(entry.textLength), nullptr, 0);
    QChar index[rangeRoom];
    index[0] = QLatin1Char('[');
    QChar *end = writeNumber(index + 1, entry.bitOfSlot(slot));
    *end++ = QLatin1Char(']');
    return compose(path, nameOf(entry), int(entry.textLength), index, int(end - index));
}

QString RtlModule::busName(const Entry &entry, const QString *path) const
{
    QChar range[rangeRoom];
    return compose(path, nameOf(entry), int(entry.textLength), range, writeRange(entry, range));
}

QString RtlModule::shortName(const Entry &entry) const
{
    return entry.isBus ? busName(entry, nullptr) : netName(entry.firstSlot, nullptr);
}

// The first entry of that name that `accept` takes.
template <typename Accept>
qint64 RtlModule::findEntry(const QChar *name, int length, Accept accept) const
{
    if (m_byName.isEmpty()) {
        for (const Entry &entry : m_entries)
            m_byName.add(nameOf(entry), int(entry.textLength));
        m_byName.sort();
    }
    qint64 found = -1;
    m_byName.visit(name, length, [&](quint32 number) {
        const Entry &entry = m_entries[number];
        if (isText(nameOf(entry), int(entry.textLength), name, length) && accept(entry))
            found = number;
        return found >= 0;
    });
    return found;
}

qint64 RtlModule::findSlot(const QString &name, int from) const
{
    const QChar *begin = name.constData() + from;
    const int length = name.size() - from;
    const qint64 single = findEntry(begin, length, [](const Entry &entry) { return !entry.isBus; });
    if (single >= 0)
        return m_entries[size_t(single)].firstSlot;
    const int bracket = name.lastIndexOf(QLatin1Char('['));
    if (bracket < from || !name.endsWith(QLatin1Char(']')))
        return -1;
    const QString digits = name.mid(bracket + 1, name.size() - bracket - 2);
    bool isNumber = false;
    const int bit = digits.toInt(&isNumber);
    if (!isNumber || digits != QString::number(bit)) // "[03]" is no name of a bit
        return -1;
    const qint64 bus =
        findEntry(begin, bracket - from, [bit](const Entry &e) { return e.isBus && e.hasBit(bit); });
    return bus < 0 ? -1 : qint64(m_entries[size_t(bus)].slotOfBit(bit));
}

qint64 RtlModule::findBus(const QString &name, int from) const
{
    const int bracket = name.lastIndexOf(QLatin1Char('['));
    if (bracket < from)
        return -1;
    return findEntry(name.constData() + from, bracket - from, [&](const Entry &entry) {
        QChar range[rangeRoom];
        const int length = writeRange(entry, range);
        return entry.isBus && isText(range, length, name.constData() + bracket, name.size() - bracket);
    });
}

qint64 RtlModule::findDeclared(const QString &name, int from) const
{
    return findEntry(name.constData() + from, name.size() - from, [](const Entry &) { return true; });
}

} // namespace QUARRY
