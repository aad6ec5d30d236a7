#pragma once

#include "model/netlist/nameindex.h"
#include "model/netlist/rtlnetlist.h"

namespace QUARRY {

struct ModuleDecl;

// The declarations of one module, shared by all its instances: names and ranges stand here once, an
// instance holds only what differs. Entries are the declared nets and buses in declared order; slots are
// their bits in the same order, a single net being one slot.
class RtlModule
{
public:
    explicit RtlModule(const ModuleDecl &decl);

    // One declared net or bus. Its name is a piece of names().
    struct Entry
    {
        quint32 textBegin;
        quint32 textLength : 30;
        quint32 isBus : 1;
        quint32 excluded : 1;
        int left; // declared range of a bus
        int right;
        quint32 firstSlot;
        quint32 ordinal; // position in Hierachy::nets or Hierachy::buses

        int width() const { return isBus ? rangeWidth(left, right) : 1; }
        bool hasBit(int bit) const { return qMin(left, right) <= bit && bit <= qMax(left, right); }
        quint32 slotOfBit(int bit) const { return firstSlot + quint32(qAbs(left - bit)); }
        int bitOfSlot(quint32 slot) const
        {
            const int offset = int(slot - firstSlot);
            return left < right ? left + offset : left - offset;
        }
    };

    const QString &name() const { return m_name; }
    bool isScope() const { return m_isScope; } // its nodes are no instances of a module
    const std::vector<Entry> &entries() const { return m_entries; }
    // Apart from the entries: a search reads those of the whole design, and this of what it finds.
    Declaration info(quint32 number) const
    {
        Declaration info = kind(number);
        info.line = line(number);
        return info;
    }
    const Declaration &kind(quint32 number) const { return m_kinds[m_places[number].kind]; } // without a line
    int line(quint32 number) const { return m_places[number].line; }
    const std::vector<quint32> &excludedSlots() const { return m_excludedSlots; }
    quint32 slotCount() const { return quint32(m_entryOfSlot.size()); }
    quint32 entryNumber(quint32 slot) const { return m_entryOfSlot[slot]; }
    const Entry &entryOfSlot(quint32 slot) const { return m_entries[m_entryOfSlot[slot]]; }

    // The names of all entries without their ranges, one behind the other in the order of the entries.
    const QString &names() const { return m_text; }
    bool isAscii() const { return m_isAscii; } // all of names()
    // The name without a range: textLength units, not terminated.
    const QChar *nameOf(const Entry &entry) const { return m_text.constData() + entry.textBegin; }
    // "[7:0]" at `out`, which has rangeRoom units; gives the length.
    static const int rangeRoom = 28;
    static int writeRange(const Entry &entry, QChar *out);

    // Short names, with `path` and a separator in front unless the path is null.
    QString netName(quint32 slot, const QString *path) const;
    QString busName(const Entry &entry, const QString *path) const;
    QString shortName(const Entry &entry) const; // with its range

    // The slot of a net or bit, and the number of a bus's entry, whose short name is `name` from position
    // `from` on; the number of the first entry whose name without a range it is. -1 without one.
    qint64 findSlot(const QString &name, int from) const;
    qint64 findBus(const QString &name, int from) const;
    qint64 findDeclared(const QString &name, int from) const;

private:
    quint32 kindOf(const Declaration &info, QMultiHash<QString, quint32> &kinds);
    template <typename Accept>
    qint64 findEntry(const QChar *name, int length, Accept accept) const;

    QString m_name;
    bool m_isScope;
    QString m_text;
    bool m_isAscii = true;
    std::vector<Entry> m_entries;
    struct Place
    {
        quint32 kind;
        int line;
    };
    std::vector<Declaration> m_kinds; // unlike each other, their lines aside
    std::vector<Place> m_places;
    std::vector<quint32> m_entryOfSlot;
    std::vector<quint32> m_excludedSlots;
    mutable NameIndex m_byName; // made when a name is first looked up
};

} // namespace QUARRY
