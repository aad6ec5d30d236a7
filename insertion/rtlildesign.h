#pragma once

#include <QByteArray>
#include <QFile>
#include <QHash>
#include <QSet>

#include <utility>
#include <vector>

namespace Insertion {

// Names in RTLIL begin with a backslash when the user gave them, with a dollar sign when Yosys did; they are
// kept with that sign. A cell that is an instance of a module, not a gate.
struct RtlilCell
{
    QByteArray type;
    qint64 end = 0; // where its last line begins
};

// Behind the text in quotes that begins there, in which a backslash stands before what means only itself.
int endOfQuotes(const QByteArray &text, int begin);

// One module of the text, as far as a tap needs it.
struct RtlilModule
{
    qint64 begin = 0;              // behind the line that names it
    qint64 end = 0;                // of its last line
    int ports = 0;                 // the highest number of a port
    QHash<QByteArray, int> widths; // of the user's wires
    QSet<QByteArray> memories;
    QHash<QByteArray, RtlilCell> cells;
    std::vector<QByteArray> portNames; // in no order
    bool isRead = false;
};

// A design as Yosys writes it by write_rtlil, one declaration a line, and behind that by write_verilog: the
// one text is changed, the other one tells what the design was. The file is mapped into memory, modules are
// read when they are asked for, and what is inserted is merged on the way out: nothing is held for what stays
// as it is.
class RtlilDesign
{
public:
    bool open(const QString &path, QString *error);

    const RtlilModule *module(const QByteArray &name); // null when there is none
    QByteArray topModule() const { return m_top; }     // marked as such; empty when there is none
    bool mentions(const QByteArray &word) const { return m_text.contains(word); }

    // Lines before what stands at that place; at one place in the order of the calls.
    void insert(qint64 place, const QByteArray &lines) { m_insertions.emplace_back(place, lines); }
    // The text with the insertions, without the places in the sources that Yosys notes beside everything and
    // without folders in the names that it makes: what is written depends on no folder.
    bool write(const QString &path, QString *error);
    // The Verilog that stands behind the RTLIL, with the same names.
    bool writeVerilog(const QString &path, QString *error) const;

private:
    void readModule(RtlilModule &module) const;

    QFile m_file;
    QByteArray m_text; // of the mapped file
    QByteArray m_verilog;
    QHash<QByteArray, RtlilModule> m_modules;
    QByteArray m_top;
    std::vector<std::pair<qint64, QByteArray>> m_insertions;
};

} // namespace Insertion
