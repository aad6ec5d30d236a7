#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include "elaboration/tools/vhdlscan.h"

namespace QUARRY {

struct VhdlFile
{
    QString path;
    QString library; // that the project says; may be empty
    VhdlScan scan;
};

// Which libraries each file belongs to: the one that the project says, or else those under whose names its
// units are used. Where only one name is used, everything is in that library, and "work" stands for it, too.
// Names in lower case; the order of the libraries is that of the files.
QHash<QString, QStringList> vhdlLibraries(const QList<VhdlFile> &files);

// Files that one run of the tool reads into one library.
struct VhdlBatch
{
    QString library;
    QStringList files;
};

// The files in that order, each for all its libraries.
QList<VhdlBatch> vhdlBatches(const QStringList &files, const QHash<QString, QStringList> &libraries);

} // namespace QUARRY
