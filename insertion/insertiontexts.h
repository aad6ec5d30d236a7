#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

namespace QUARRY {
struct ToolResult;
}

namespace Insertion {

class Analyzer;
class FlatNetlist;
struct InsertionOptions;
struct Surgery;

// What was found out on the way.
struct InsertionReport
{
    QStringList differences; // of the netlists; none: the design is unchanged
    int cells = 0;           // of the original, as its nets and memories
    int nets = 0;
    int memories = 0;
    QStringList problemsBefore;            // that Yosys' check finds in the original
    QString equivalence = "not asked for"; // or what became of it
    QMap<QString, int> counts[2];          // resources by their names, of the original and with the analyzer
    QStringList warnings;                  // sentences that begin with WARNING

    // Warns of clocks that a register makes, of taps that never change and of those that nothing drives or of
    // which that is not known.
    void noteTaps(const Analyzer &analyzer, const FlatNetlist &original);
    // Warns of cores whose memories the family that resources are counted for does not have.
    void noteFamily(const Analyzer &analyzer, const QString &family);
    // What the check finds now: all that is new, but nets that nothing drives, is a difference.
    void noteProblems(const QStringList &problems);
    void noteEquivalence(const QUARRY::ToolResult &result, int seconds);
    void noteCounts(const QByteArray &output, bool isOriginal);
};

// The files of the output folder; the same for the same input.
QByteArray proofText(const InsertionReport &report);
QByteArray mapText(const Analyzer &analyzer, const Surgery &surgery, const QString &topModule);
QByteArray reportText(const InsertionReport &report, const Analyzer &analyzer,
                      const InsertionOptions &options, bool hasDesign);

} // namespace Insertion
