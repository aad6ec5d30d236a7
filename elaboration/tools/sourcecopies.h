#pragma once

#include <QHash>
#include <QSet>
#include <QStringList>

#include <set>
#include <utility>

#include "elaboration/tools/sourcerepairs.h"

namespace QUARRY {

class SafeNames;
class ScratchDir;

// Hands sources that need a repair (see sourcerepairs.h) to the tools as copies in the scratch folder, with
// the same lines; the names of the copies are SafeNames' matter. What a copy includes is found where the
// original finds it, and a file that includes a copied one is copied, too. Other files are not touched.
class SourceCopies
{
public:
    SourceCopies(const ScratchDir &scratch, SafeNames &names);

    // Where included files are looked for, in the tool's order; last in the folder of the file itself.
    void setFolders(const QStringList &folders) { m_folders = folders; }

    // Reads those that it has not seen, and what they include. Gives sentences about what cannot be read:
    // a tool would wait at a pipe or read a device without end.
    QStringList look(const QStringList &files, SourceLanguage language);
    bool hasSeen(const QString &file) const { return m_sources.contains(file); }
    QStringList includedFiles() const;
    // Those files and all that include one of them, through others, too.
    QSet<QString> includersOf(QSet<QString> files) const;

    void want(SourceRepair repair) { m_wanted |= repair; } // beside those that are always made
    // That repair is not made in these files.
    void spare(SourceRepair repair, const QSet<QString> &files) { m_spared[repair] = files; }

    // A source as the tools get it, and another text for it from now on.
    QByteArray textOf(const QString &path) const;
    void replace(const QString &path, const QByteArray &text);
    // Makes that repair in what the tools get. False when there is nothing to do.
    bool repair(const QString &path, SourceRepair repair, BlankedNames &names);
    void hideModule(const QString &file, const QByteArray &name); // that the file declares
    const BlankedNames &blanked() const { return m_blanked; }

    // Makes the copies that are needed by now. False when no tool will see anything new.
    bool update();

    QStringList encrypted() const { return m_encrypted; } // files of which a part was left out for that
    // File and line of each `bind` to a single instance, which no tool reads.
    std::set<std::pair<QString, int>> lostBinds() const { return m_lostBinds; }
    bool isEmpty(const QString &file) const; // VHDL of which nothing is left to be read

private:
    struct Source
    {
        SourceLanguage language = VerilogSource;
        int judged = 0; // repairs of which it is known whether they are
        int needed = 0; // for which there may be something to do
        int made = 0;
        bool isIncluded = false;
        bool isEmpty = false;
        QSet<QString> includes; // the files that it includes
    };
    QString include(const QString &name, const QString &includer) const;
    void read(const QString &path, Source &source, QStringList &faults);
    void noteIncludes(const QString &path, const QByteArray &text, Source &source, QStringList &faults);
    int wantedIn(const QString &path) const;
    void addCopy(const QString &path);
    void learnBlanked();
    void write(const QString &path, QByteArray text);
    QByteArray withPlacedIncludes(const QString &path, const QByteArray &text);

    const ScratchDir &m_scratch;
    SafeNames &m_names;
    QStringList m_folders;
    QHash<QString, Source> m_sources;
    QStringList m_waiting;            // to be read by look()
    QHash<QString, QString> m_copies; // of paths, to files in the scratch folder
    QHash<int, QSet<QString>> m_spared;
    BlankedNames m_blanked;
    QSet<QString> m_learnt; // files of which it knows all of them
    QStringList m_encrypted;
    std::set<std::pair<QString, int>> m_lostBinds;
    int m_wanted = HideSimulation | HideEncrypted | DropByteOrderMark | ReplaceCaseGenerates | SplitGenerics;
};

} // namespace QUARRY
