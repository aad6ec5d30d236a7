#pragma once

#include <QHash>
#include <QMap>
#include <QSet>
#include <QStringList>

#include "elaboration/tools/toolmessages.h"

namespace QUARRY {

class SafeNames;
class SourceCopies;
class VerilatorRun;

// What can be changed about how the Verilog sources are read when Verilator refuses them, one thing after the
// other. Some are guesses: when a guess did not lead further, what was refused before it is what the user is
// told. All names of files are the user's own.
class ReadingRepairs
{
public:
    ReadingRepairs(const SafeNames &names, VerilatorRun &verilator, SourceCopies &copies,
                   const QStringList &libraryFolders, const QStringList &disabledFiles);

    // After a reading with errors: true when there is something to try, and the design is to be read again.
    bool tryNext(QList<ToolMessage> errors);
    // After one without: the files that the tool read. True when one of them must be read otherwise.
    bool tryAgain(const QStringList &filesRead);
    // What to tell the user when nothing more can be tried.
    QList<ToolMessage> refused() const;
    // Sentences about what was left out, and about guesses that were right.
    QStringList notes() const;
    // Sentences about what the user can do.
    QStringList hints() const;
    // Files in which the tool found a module by chance; by name of the module.
    const QMap<QString, QString> &strays() const { return m_strays; }

private:
    enum Guess { NoGuess, IsSystemVerilog, HasAssertions, AsksForTool };

    bool dropParameters();
    bool judgeGuess(const QList<ToolMessage> &errors);
    bool guessNext();
    bool guessLanguage();
    bool guessAssertions();
    bool guessToolMacro();
    bool lookLate(const QStringList &files, bool areFaulty);
    bool isInLibrary(const QString &file) const;
    bool isNamedInSources(const QString &file) const;
    bool addPackages();
    bool leaveOutUnneeded();
    bool leaveOutRefused();
    bool isInstantiated(const QByteArray &module) const;

    const SafeNames &m_names;
    VerilatorRun &m_verilator;
    SourceCopies &m_copies;
    const QStringList m_libraryFolders;
    const QStringList m_disabledFiles;
    QList<ToolMessage> m_errors;           // of the reading that got furthest
    Guess m_guess = NoGuess;               // what the last reading was to show
    QStringList m_guessed;                 // the files that led to it
    QMap<QString, int> m_systemVerilog;    // files that must be that, by a guess, and the line that tells it
    QHash<QString, QSet<QString>> m_users; // of the former: the sources that so became it
    QSet<QString> m_tried;                 // of which that was guessed once
    QMap<QString, QString> m_strays;
    QStringList m_notes;
    bool m_packagesOrdered = false;
    bool m_toolMacroTried = false;
};

} // namespace QUARRY
