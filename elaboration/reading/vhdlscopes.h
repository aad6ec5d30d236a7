#pragma once

#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

namespace QUARRY {

// A part of a signal that is shown as a net or bus: ".alu_op", "[2].data".
struct VhdlElement
{
    QString name;
    bool isBus = false;
    int left = 0;
    int right = 0;
    int offset = 0; // of its bits in the signal as GHDL translates it
    QString member; // of a record as a whole, with its bits
    int memberOffset = 0;
    int memberWidth = 0;
    QString type; // where it has a name that says more than the shape
    QStringList labels;
};
typedef std::vector<VhdlElement> VhdlElements;

// A declared signal or port. What a waveform in VCD cannot hold (records, enumerations, integers) comes with
// its name alone.
struct VhdlSignal
{
    QString name;
    bool hasShape = false;
    bool isBus = false;
    int left = 0;
    int right = 0;
    int width = 0;                                // as GHDL translates it, where there are elements
    std::shared_ptr<const VhdlElements> elements; // null: not known, or one; none: it is not shown
};

// Of scopes in scopes: a file with more is damaged, and its readers call themselves for each.
const size_t mostVhdlLevels = 1000;

// An instance, a block or one round of a generate loop, as the VHDL has it. The Verilog that GHDL makes
// of the same entity has lost generate scopes, declared ranges and what nothing reads.
struct VhdlScope
{
    enum Order { NotKnown, Upwards, Downwards };
    QString name;           // "u0", "gen(3)"
    Order order = NotKnown; // of the loop that this is a round of
    std::vector<VhdlSignal> signalList;
    std::vector<std::unique_ptr<VhdlScope>> children;

    bool isEmpty() const { return signalList.empty() && children.empty(); } // so is an unbound component
    QString label() const;                                                  // "gen"
    QString shownName() const;                                              // "gen[3]"
    // The child of that name, which is the scope of an entity; null when there is none.
    std::unique_ptr<VhdlScope> takeEntity(const QString &entity);
};

// Extended identifiers stand between backslashes, which are no part of the name.
QString plainVhdlName(const QString &name);

// The scope of an entity in the waveform file that "ghdl --elab-run ENTITY --stop-time=0ns --stop-delta=0
// --vcd=FILE" writes, or --wave=FILE, which knows all types. Null when the file cannot be read or does not
// hold it.
std::unique_ptr<VhdlScope> readVhdlScopes(const QString &waveform, const QString &entity);

} // namespace QUARRY
