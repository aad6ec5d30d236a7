#pragma once

#include <QString>
#include <QStringList>

namespace Core {

struct FolderSources
{
    QStringList files;          // HDL files but headers, in the order of their paths
    QStringList includeFolders; // those that hold headers
};

// The sources that a folder stands for: those in it and in the folders below, but neither hidden ones nor
// what links to folders lead to. False, with a sentence, when there is none, and when there are more than a
// project has.
bool findSources(const QString &folder, FolderSources &found, QString &fault);

} // namespace Core
