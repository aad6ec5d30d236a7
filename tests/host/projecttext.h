#pragma once

#include <QStringList>

#include "host/projectfile.h"

// What a project holds, a word each: "a.v:2@lib?" a source with type and library, which is used only when
// needed, then "I:inc" and the like. Paths are those from the folder on.
inline QStringList projectWords(const Core::ProjectData &data, const QString &folder)
{
    QStringList words;
    const auto add = [&words](const QString &prefix, const QStringList &values) {
        for (const QString &value : values)
            words << prefix + value;
    };
    for (const Core::SourceFile &file : data.files)
        words << file.path + ":" + QString::number(file.type) +
                     (file.library.isEmpty() ? "" : "@" + file.library) + (file.onlyWhenUsed ? "?" : "");
    add("I:", data.includePaths);
    add("y:", data.libraryPaths);
    add("ext:", data.librarySuffixes);
    add("D:", data.defines);
    add("U:", data.undefines);
    add("G:", data.parameters);
    if (!data.topModule.isEmpty())
        words << "top:" + data.topModule;
    return words.replaceInStrings(folder + '/', "");
}
