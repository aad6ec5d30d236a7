#pragma once

#include <QString>
#include <QStringList>

namespace Core {

// What a folder has for a design; all paths begin with that of the folder.
struct FolderSources
{
    QStringList files;          // HDL files but headers, in the order of their paths
    QStringList includeFolders; // those that hold headers
};

// The sources that a folder stands for: those in it and in the folders below, but neither hidden ones nor
// what links to folders lead to. `looked` counts the names that were looked at, for all folders of a command
// line or a list together. False, with a sentence, when there is no source, and when there are more names
// than a project has.
bool findSources(const QString &folder, int &looked, FolderSources &found, QString &fault);

} // namespace Core
