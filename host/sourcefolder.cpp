#include "host/sourcefolder.h"

#include <QDirIterator>
#include <QFileInfo>

#include "host/filetypes.h"

namespace Core {
namespace {

// Who names the root of a disk did not mean to.
#ifdef JEX_FUZZ // which has no seconds for one text
const int lookLimit = 200;
#else
const int lookLimit = 200000;
#endif

} // namespace

bool findSources(const QString &folder, int &looked, FolderSources &found, QString &fault)
{
    QDirIterator files(folder, QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (looked < lookLimit && files.hasNext()) {
        const QString path = files.next();
        ++looked;
        if (!files.fileInfo().isFile() || !TE::isDesignFileType(TE::fileTypeFromName(path)))
            continue;
        const QString home = files.fileInfo().path();
        if (!TE::isHeaderName(path))
            found.files.append(path);
        else if (found.includeFolders.isEmpty() || found.includeFolders.last() != home)
            found.includeFolders.append(home);
    }
    found.files.sort();
    found.includeFolders.sort();
    found.includeFolders.removeDuplicates();
    if (looked >= lookLimit)
        fault = QString::fromLatin1(
                    "The folder \"%1\" has too many files to stand for its sources: name those of "
                    "the design.")
                    .arg(folder);
    else if (found.files.isEmpty())
        fault = QString::fromLatin1("There is no source in the folder \"%1\".").arg(folder);
    return fault.isEmpty();
}

} // namespace Core
