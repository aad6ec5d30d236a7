#pragma once

#include <QSet>
#include <QStringList>

#include "elaboration/tools/toolmessages.h"

namespace QUARRY {

// A SystemVerilog package that sources use and none of them declares, where the tool met it first.
struct MissingPackage
{
    QString name;
    QString file;
    int line;
};

// Taken from what the tool refused; the files of the messages are the user's own. The tool itself names a
// package only where it is imported: elsewhere it takes "p::t" for a syntax error.
QList<MissingPackage> missingPackages(const QList<ToolMessage> &errors, const QStringList &sources);

// The file that declares the package; empty when none does.
QString fileOfPackage(const QString &package, const QStringList &files);
// All files in these folders that may hold packages.
QStringList packageFiles(const QStringList &folders);

// The errors for the user: missing packages first, and without what only follows from them. `disabled` are
// files that are not read, but named when they have what is missing.
QList<ToolMessage> withMissingPackages(const QList<ToolMessage> &errors, const QStringList &sources,
                                       const QStringList &disabled);

} // namespace QUARRY
