#pragma once

#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>

#include "elaboration/tools/blankednames.h"
#include "elaboration/tools/missingpackages.h"
#include "elaboration/tools/sourcerepairs.h"
#include "elaboration/tools/vhdllibraries.h"

namespace QUARRY {

struct DesignInput;
class SafeNames;
class ScratchDir;
class SourceCopies;

// What is done about VHDL that GHDL refuses, error by error: libraries and packages that no file has become
// empty ones, and sources are changed in copies as the table of repairs says. Knows what that made of the
// units.
class VhdlRepairs
{
public:
    VhdlRepairs(const DesignInput &input, const ScratchDir &scratch, const SafeNames &names,
                SourceCopies &copies);

    // Units of the project, so that none of them is called missing. Names in lower case.
    void setPackages(const QSet<QString> &packages) { m_packages = packages; }

    // The files of the errors are the user's own. False when nothing can be done any more.
    bool repair(const QString &library, const QList<ToolMessage> &errors);
    // Files that are to be read before what was refused.
    QList<VhdlBatch> takeMade();
    bool isMade(const QString &file) const { return m_files.contains(file); }

    VhdlFaults &faults() { return m_names.vhdl; }
    const VhdlFaults &faults() const { return m_names.vhdl; }
    QStringList takeMessages();

private:
    bool supply(const QString &library, const ToolMessage &error);
    bool supplyPackage(const QString &library, const QString &name, const QByteArray &content);
    QList<ToolMessage> mend(SourceRepair repair, const QList<ToolMessage> &errors);
    bool usesAbsent(const QString &file) const;
    bool follows(const ToolMessage &error) const;
    QString missingSentence(const MissingPackage &package) const;
    void note(const QList<ToolMessage> &errors, QStringList &messages) const;

    const DesignInput &m_input;
    const ScratchDir &m_scratch;
    const SafeNames &m_safeNames;
    SourceCopies &m_copies;
    BlankedNames m_names;
    QSet<QString> m_packages;
    int m_rounds = 0;
    QSet<QString> m_supplied; // "library.package"
    QSet<QString> m_absent;   // packages that no file has, or that were left out
    QSet<QString> m_affected; // files in which something that was not declared may stand in one of those
    QList<MissingPackage> m_missing;
    QStringList m_files; // of what was supplied
    QList<VhdlBatch> m_made;
    QStringList m_assumed; // the tool's words about what was supplied
    QStringList m_messages;
};

} // namespace QUARRY
