#include "host/editorregistry.h"

#include <QFileInfo>
#include <QPair>

namespace Core {
namespace {

typedef QPair<QString, EditorRegistry::Opener> Announcement; // by suffix

QList<Announcement> &announcements()
{
    static QList<Announcement> list;
    return list;
}

} // namespace

void EditorRegistry::announce(const QString &suffix, Opener open)
{
    announcements().append(Announcement(suffix.toLower(), open));
}

EditorRegistry::Opener EditorRegistry::editorFor(const QString &path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    Opener found = nullptr;
    for (const Announcement &known : announcements())
        found = known.first == suffix ? known.second : found;
    return found;
}

QList<EditorRegistry::Opener> EditorRegistry::openers()
{
    QList<Opener> openers;
    for (const Announcement &known : announcements())
        openers.append(known.second);
    return openers;
}

void EditorRegistry::withdraw(Opener open)
{
    for (int i = announcements().size() - 1; i >= 0; --i) {
        if (announcements().at(i).second == open)
            announcements().removeAt(i);
    }
}

void EditorRegistry::clear()
{
    announcements().clear();
}

} // namespace Core
