#pragma once

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>

#include "elaboration/tools/sourcetext.h"

namespace QUARRY {

// The files in an order in which every package and entity stands before the files that use it; files
// that do not depend on each other stay as they were. Reads the words of the files, not their grammar:
// good enough for an order, which the tool then judges.
QStringList orderedByUse(const QStringList &files, SourceLanguage language);

// The last parts of the names that Verilog files include: "part.vh" of `include "sub/part.vh".
QSet<QString> includedNames(const QStringList &files);

// Which Verilog files need which others, by the names that stand in them.
class SourceNeeds
{
public:
    explicit SourceNeeds(const QStringList &files);

    QStringList roots() const; // modules that stand in no other file
    // The files that the module needs, and those that any file may need; all when no file declares it.
    QSet<QString> filesFor(const QString &module) const;

private:
    QHash<QString, QSet<QString>> m_words; // of the files
    QHash<QString, QString> m_owners;      // of modules, packages and the like: the files
    QStringList m_modules;
    QSet<QString> m_forAll;
};

// The first of the files that declares the module or entity; empty when none does.
QString fileOfModule(const QString &module, const QStringList &files);

// The entities that a VHDL file declares.
QStringList vhdlEntities(const QString &file);

// The entities that no other instantiates.
QStringList vhdlRoots(const QStringList &files);

} // namespace QUARRY
