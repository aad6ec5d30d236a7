#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>

#include "insertion/vhdlelements.h"

namespace QUARRY {
class Hierachy;
class RtlNetlist;
} // namespace QUARRY

namespace Insertion {

class RtlilDesign;

// A net of the design as a whole that one of the cores looks at.
struct Tap
{
    QString net;        // full name without a range, "soc/u_uart/count"
    QStringList path;   // instances and scopes below the top, "u_uart"
    QString shortName;  // "count"
    bool isBus = false; // then with the declared range
    int left = 0;
    int right = 0;
    bool isVhdl = false;
    QString module;                        // that declares it, as the user knows it
    QString file;                          // in which it does
    QList<const QUARRY::Hierachy *> nodes; // of the path
    QList<WholeWire> wholes;               // of VHDL: wires that may hold it among others

    // Where Yosys has it, once resolved: cells from the top down, then a wire.
    QList<QByteArray> cells;
    QByteArray wire;
    int low = 0; // its lowest bit there
    bool isPart = false;

    int width() const;
    QByteArray signal() const; // what of the wire it is, as the text has it: "\\list [7:4]"
    // The declared range as it stands behind a name, "[7:0]"; empty for a single net.
    QString range() const;
    // The place of a declared bit counted from the right end, as Verilog numbers count.
    int placeOf(int bit) const { return qAbs(bit - right); }
};

// A bit of a tap, by its position in the list of taps and its place in it.
struct TapBit
{
    int tap = -1;
    int place = 0;
};

// All nets that cores look at, each once.
class TapList
{
public:
    explicit TapList(const QUARRY::RtlNetlist &netlist) : m_netlist(netlist) {}

    TapBit add(const QString &bit); // full name of a net or of a bit of a bus; -1 when there is none
    const QList<Tap> &taps() const { return m_taps; }

    // Finds each in the text, by the longest match over the tree of instances: a scope is a part of a name
    // there, and names may have any character. Sentences about those that cannot be tapped.
    QStringList resolve(RtlilDesign &design, const QSet<QString> &blackBoxes);

private:
    const QUARRY::RtlNetlist &m_netlist;
    QList<Tap> m_taps;
    QHash<QString, int> m_numbers; // by full name
};

} // namespace Insertion
