#pragma once

#include <QByteArray>
#include <QHash>
#include <QSet>
#include <QStringList>

#include <vector>

#include "insertion/flatnetlist.h"

namespace Insertion {

// What the insertion added to a design, as the names in the flattened netlist tell it.
struct Added
{
    QByteArray prefix;            // of wires and of the cell of the cores: "jex"
    QByteArray coresType;         // "\jex_cores"
    QSet<QByteArray> coresInputs; // ports of that cell that read; all others drive

    bool isAdded(const QByteArray &name) const; // a wire, in whatever module
};

// Finds every cell, parameter, initial value, memory and net of one netlist again in another, one to one,
// with nothing that the cores drive among the nets. What has a name is found by it; gates and the wires
// between them, which have none, by what they are connected to. That is the search; afterwards each pair is
// looked at, so that a wrong guess can only make the proof fail.
class NetlistProof
{
public:
    NetlistProof(const FlatNetlist &original, const FlatNetlist &tapped, const Added &added);

    // Sentences about what differs, at most some; none: the design is unchanged.
    QStringList run();

    int cellCount() const { return int(m_original.cells().size()); }
    int netCount() const { return m_netCount; } // of the original

private:
    typedef std::vector<quint64> Colors; // by net

    void pairWires();
    void pairNets(int original, int tapped, const QByteArray &where);
    void pairCells();
    Colors namedColors(const FlatNetlist &netlist, bool isOriginal) const;
    std::vector<quint64> cellColors(const FlatNetlist &netlist, Colors nets) const;
    void comparePair(const FlatNetlist::Cell &original, const FlatNetlist::Cell &tapped);
    void compareConstants();
    void checkCores();
    void report(const QString &sentence);

    const FlatNetlist &m_original;
    const FlatNetlist &m_tapped;
    const Added m_added;
    std::vector<int> m_tappedOf;   // net of the original to that of the other; -1: none yet
    std::vector<int> m_originalOf; // and back
    QStringList m_differences;
    int m_netCount = 0;
};

} // namespace Insertion
