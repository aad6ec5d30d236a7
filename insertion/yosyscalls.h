#pragma once

#include <QString>
#include <QStringList>

#include "elaboration/tools/safenames.h"
#include "elaboration/tools/toolprocess.h"

namespace QUARRY {
struct DesignInput;
struct Elaboration;
class ScratchDir;
} // namespace QUARRY

namespace Insertion {

// What Yosys is asked to do with one design. Its scripts hold nothing but names that we made or looked at: a
// script can start programs.
class YosysCalls
{
public:
    YosysCalls(const QUARRY::DesignInput &input, const QUARRY::Elaboration &elaboration);

    QString fault() const { return m_fault; } // a sentence: what of the design no script can hold

    // Reads the sources; the design goes to readFile(), as RTLIL and behind that as Verilog. A simulated
    // netlist keeps what is unknown in conditions unknown, which makes latches of a synthesized one.
    QUARRY::ToolCall reading(bool forSimulation);
    // Of what Yosys refused: when the file is a part that others include, leaves it to them.
    bool leaveToIncludes(const QString &file);
    QString realFile(const QString &file) const { return m_names.real(file); }

    // Takes originalFile(), writtenFile(), tappedFile() and coresFile(), writes designFile(), which lacks the
    // cores, and both netlists, flattened, of what was read back from it and from writtenFile().
    QUARRY::ToolCall tapping();
    QUARRY::ToolCall proving(const QByteArray &prefix, int seconds);   // by formal equivalence
    QUARRY::ToolCall counting(const QString &family, bool isOriginal); // of cells, as JSON

    QString readFile() const { return file("read.txt"); }
    QString originalFile() const { return file("original.il"); }
    QString writtenFile() const
    {
        return file("original.v");
    } // the original as Verilog, straight after reading
    QString tappedFile() const { return file("tapped.il"); }
    QString coresFile() const { return file("cores.v"); }
    QString designFile() const { return file("made/design.v"); }
    QString flatOriginalFile() const { return file("made/original.flat"); }
    QString flatTappedFile() const { return file("made/tapped.flat"); }
    QString checkFile(bool isOriginal) const
    {
        return file(isOriginal ? "made/original.check" : "made/tapped.check");
    }
    QString countFile() const { return file("made/count.json"); }
    // What Yosys writes is in a folder of its own, the only one that it can write to.
    QString file(const char *name) const;

    static QStringList families(); // that counting() knows

private:
    QUARRY::ToolCall call(const char *name, const QString &script, const QString &subject) const;
    QString readingScript(bool forSimulation);
    QString topParameters();
    QString cores() const;

    const QUARRY::DesignInput &m_input;
    const QUARRY::Elaboration &m_elaboration;
    const QUARRY::ScratchDir &m_scratch;
    QUARRY::SafeNames m_names;
    QStringList m_files; // Verilog, in reading order
    QString m_top;       // as a script names it
    QString m_fault;
};

} // namespace Insertion
