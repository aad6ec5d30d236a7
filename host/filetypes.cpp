#include "host/filetypes.h"

#include <QFileInfo>
#include <QStringList>

namespace TE {
namespace {

bool isAmong(const QString &path, const char *suffixes)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    return !suffix.isEmpty() && QString::fromLatin1(suffixes).split(QLatin1Char(' ')).contains(suffix);
}

} // namespace

const SourceType *sourceType(int type)
{
    for (const SourceType &row : sourceTypes) {
        if (row.type == type)
            return &row;
    }
    return nullptr;
}

FileType fileTypeFromName(const QString &path)
{
    for (const SourceType &row : sourceTypes) {
        if (isAmong(path, row.suffixes))
            return row.type;
    }
    return ConfigFile;
}

bool isHeaderName(const QString &path)
{
    for (const SourceType &row : sourceTypes) {
        if (isAmong(path, row.headers))
            return true;
    }
    return false;
}

const char *verilogSuffix(int type)
{
    const SourceType *row = sourceType(type);
    return row ? row->verilogSuffix : sourceTypes[0].verilogSuffix;
}

QString sourcePatterns()
{
    QStringList patterns;
    for (const SourceType &row : sourceTypes) {
        for (const QString &suffix : QString::fromLatin1(row.suffixes).split(QLatin1Char(' ')))
            patterns.append(QLatin1String("*.") + suffix);
    }
    return patterns.join(QLatin1String(" "));
}

} // namespace TE
