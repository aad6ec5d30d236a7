#pragma once

#include "model/netlist/rtlnetlist.h"

namespace QUARRY {

// One declared net or bus of a module. Strings that repeat (file, type) take no room when they share
// their data: keep one QString for all declarations of a file.
struct NetDecl
{
    QString name;       // without a range
    bool isBus = false; // a vector, also one of a single bit
    int left = 0;       // declared range of a bus, either direction
    int right = 0;
    bool excluded = false;   // the whole net or bus, in every instance
    QList<int> excludedBits; // of a bus: declared indices of single bits, in every instance
    Declaration info;
};

// What all instances of a module share.
struct ModuleDecl
{
    QString name;
    QList<NetDecl> nets;  // in declared order
    bool isScope = false; // no module of its own: a generate scope, a block
};

// Builds a netlist from the top down. Owns it until take(). Module numbers are those of addModule(); the
// nodes belong to the netlist. A module may be added at any time before its first instance.
class NetlistBuilder
{
public:
    NetlistBuilder();
    ~NetlistBuilder();

    // What a design may have at most, so that a source with a range or a loop that is too large does not take
    // the memory: a net costs about 50 bytes, an instance 200. The large design of the benchmark has
    // 1,000,000 nets.
#ifdef JEX_FUZZ // which has no seconds for one text
    static constexpr qint64 maxNets = qint64(1) << 14;
    static constexpr qint64 maxInstances = qint64(1) << 10;
#else
    static constexpr qint64 maxNets = qint64(1) << 25;
    static constexpr qint64 maxInstances = qint64(1) << 22;
#endif
    // A sentence that begins with "ERROR" once something was left out because it is more; else empty.
    const QString &overflow() const
    {
        return m_overflow;
    }
    void expectInstances(qint64 count); // that many will come, unless it is too many

    int addModule(const ModuleDecl &module);
    Hierachy *addTop(const QString &instanceName, int module); // once
    Hierachy *addInstance(Hierachy *parent, const QString &instanceName, int module);

    // In this instance alone. `net` is the position in ModuleDecl::nets. Excluding a bus excludes its
    // bits; a bus of which all bits are excluded is excluded itself.
    void exclude(Hierachy *instance, int net);
    void excludeBit(Hierachy *instance, int net, int bit); // bit: declared index; none outside the range

    void setUsesTsJtag();
    RtlNetlist *take(); // the caller owns it; the builder is empty afterwards

private:
    Q_DISABLE_COPY(NetlistBuilder)
    void fill(Hierachy *node, const RtlModule &module);

    std::unique_ptr<RtlNetlist> m_netlist;
    qint64 m_netCount = 0;
    QString m_overflow;
};

} // namespace QUARRY
