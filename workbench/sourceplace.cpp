#include "workbench/sourceplace.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

namespace Workbench {
namespace {

// Texts of tools can be long, and each try asks the disk.
const int tryLimit = 200;
const int textLimit = 16 * 1024;

} // namespace

QString SourcePlace::text() const
{
    return QDir::toNativeSeparators(file) + (line ? ':' + QString::number(line) : QString());
}

QList<SourcePlace> sourcePlaces(const QString &message)
{
    const QString text = message.left(textLimit);
    static const QRegularExpression number(":(\\d{1,9})(?!\\d)");
    static const QRegularExpression begin("(?<![^\\s'\"(])/");
    QList<SourcePlace> places;
    int tries = 0;
    int from = 0; // behind the place before
    for (auto ends = number.globalMatch(text); ends.hasNext() && tries < tryLimit;) {
        const auto end = ends.next();
        for (auto begins = begin.globalMatch(text, from); begins.hasNext() && ++tries < tryLimit;) {
            const int start = begins.next().capturedStart();
            if (start >= end.capturedStart())
                break;
            const SourcePlace place = {text.mid(start, end.capturedStart() - start), end.captured(1).toInt()};
            if (!QFileInfo(place.file).isFile())
                continue;
            from = end.capturedEnd();
            const bool isKnown =
                std::any_of(places.begin(), places.end(),
                            [&place](const SourcePlace &other) { return other.text() == place.text(); });
            if (!isKnown)
                places << place;
            break;
        }
    }
    return places;
}

} // namespace Workbench
