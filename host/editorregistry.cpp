#include "host/editorregistry.h"

#include <QFileInfo>
#include <QMap>

namespace Core {
namespace {

QMap<QString, EditorRegistry::Opener> &openers()
{
    static QMap<QString, EditorRegistry::Opener> map;
    return map;
}

} // namespace

void EditorRegistry::announce(const QString &suffix, Opener open)
{
    openers().insert(suffix.toLower(), open);
}

EditorRegistry::Opener EditorRegistry::editorFor(const QString &path)
{
    return openers().value(QFileInfo(path).suffix().toLower(), nullptr);
}

void EditorRegistry::clear()
{
    openers().clear();
}

} // namespace Core
