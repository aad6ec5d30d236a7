#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <deque>
#include <limits>
#include <memory>
#include <vector>

namespace QUARRY {

// The bits of a declared range, in either direction. Of one that no design can have, as a damaged text may
// hold, as many as there are numbers.
inline int rangeWidth(int left, int right)
{
    return int(qMin<qint64>(qAbs(qint64(left) - right) + 1, std::numeric_limits<int>::max()));
}

class Hierachy;
class NameIndex;
class NetlistBuilder;
class RtlModule;
class RtlNet;
class RtlNetBus;

// What the source says about a declared name, the same for all nets of that declaration, in all instances.
struct Declaration
{
    QString file; // absolute path
    int line = 0;
    QString type;           // as declared, "logic [7:0]", "state_t"; may be empty
    QStringList enumLabels; // "IDLE=0", in order of declaration; empty when the type is no enumeration
    QStringList members;    // "len[12:9]", those of a packed structure with their bits in the bus

    // Whether all but the line is the same: a module keeps that once.
    bool isAlike(const Declaration &other) const
    {
        return file == other.file && type == other.type && enumLabels == other.enumLabels &&
               members == other.members;
    }
};

// One single-bit net, or one bit of a bus.
// Full names: instance path joined by '/' from the top instance, "top/u0/ready", "top/u0/count[3]".
class RtlNet
{
public:
    bool excluded = false; // must not be offered for probing

    QString name() const;         // "ready", "count[3]"
    QString fullPathName() const; // the identity under which a configuration stores the signal
    Declaration declaration() const;
    Hierachy *module() const { return m_module; }
    quint32 slot() const { return m_slot; } // in the declarations of module()

private:
    friend class NetlistBuilder;
    quint32 m_slot = 0;
    Hierachy *m_module = nullptr;
};

// One bus. Members in declared order, the left index of the range first: a[7:0] gives a[7] ... a[0].
class RtlNetBus
{
public:
    bool excluded = false; // as for a net, for the bus as a whole
    QList<RtlNet *> members;

    QString BusName() const;     // "count[7:0]"
    QString fullBusName() const; // "top/u0/count[7:0]"
    Declaration declaration() const;
    Hierachy *module() const { return m_module; }
    quint32 entry() const { return m_entry; } // in the declarations of module()

private:
    friend class NetlistBuilder;
    quint32 m_entry = 0;
    Hierachy *m_module = nullptr;
};

// One instance of a module; generate scopes and interfaces are nodes too.
class Hierachy
{
public:
    QString instanceName;
    QString moduleName;
    Hierachy *parent = nullptr; // null exactly for the top node
    QList<Hierachy *> children; // in design order
    QList<RtlNet *> nets;       // declared directly here
    QList<RtlNetBus *> buses;

    const QString &fullPathName() const { return m_path; } // "top/u0"
    QList<RtlNet *> singleNetsIncludeSub() const;          // own nets, then those of all descendants
    QList<RtlNetBus *> netbusesIncludeSub() const;

    // What all instances of the module share. Its single nets and buses stand in the order of `nets` and
    // `buses`.
    const RtlModule &declarations() const { return *m_declarations; }
    RtlNet *netOfSlot(quint32 slot) const { return const_cast<RtlNet *>(&m_bits[slot]); }

    // Where the rest of a full name begins behind this node's own name and the separator, when the name has
    // these from position `from` on; else -1.
    int restBelow(const QString &name, int from) const;
    // The children that such a rest goes on with, in design order. More than one can be the way: names may
    // hold the separator themselves.
    std::vector<const Hierachy *> childrenTowards(const QString &name, int from) const;

    Hierachy();
    ~Hierachy();

private:
    friend class NetlistBuilder;
    friend class RtlNetlist;
    RtlNet *findNet(const QString &name, int from) const;
    RtlNetBus *findBus(const QString &name, int from) const;

    QString m_path;
    const RtlModule *m_declarations = nullptr;
    std::vector<RtlNet> m_bits; // all single nets and bus bits, by slot
    std::vector<RtlNetBus> m_buses;
    mutable std::unique_ptr<NameIndex> m_byName; // of many children; made when one is first looked up
};

// The root of one elaborated design. Immutable once built; frees everything below it when it dies.
class RtlNetlist
{
public:
    Hierachy *topHierarchy = nullptr; // null in a model that holds no design
    bool usesTsJtag = false;

    RtlNetlist();
    ~RtlNetlist();

    // The net or bus bit of that full name; null when there is none. Walks down the instance path, so it
    // needs no index of full names.
    RtlNet *findNet(const QString &name) const;
    RtlNetBus *findBus(const QString &name) const;

private:
    Q_DISABLE_COPY(RtlNetlist)
    friend class NetlistBuilder;
    std::vector<std::unique_ptr<RtlModule>> m_modules;
    std::deque<Hierachy> m_nodes;
};

} // namespace QUARRY
