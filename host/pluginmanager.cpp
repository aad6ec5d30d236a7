#include "host/pluginmanager.h"

#include <QDir>
#include <QFileInfo>
#include <QPluginLoader>

#include "host/iplugin.h"

namespace ExtSys {

using Core::EditorRegistry;
using Core::FileWizardRegistry;

bool PluginManager::load(const QString &path, QString *errorMessage)
{
    const QFileInfo file(path);
    const int editors = EditorRegistry::openers().size(), wizards = FileWizardRegistry::announced().size();
    QString reason;
    QPluginLoader loader(file.absoluteFilePath());
    QObject *object = file.isFile() ? loader.instance() : nullptr;
    IPlugin *plugin = qobject_cast<IPlugin *>(object);
    if (!file.exists())
        reason = QLatin1String("there is no such file.");
    else if (!file.isFile())
        reason = QLatin1String("it is not a file.");
    else if (!object)
        reason = loader.errorString() + QLatin1Char('.');
    else if (!plugin)
        reason =
            QLatin1String("it is a plug-in for another program (this one takes " EXTSYS_IPLUGIN_IID ").");
    for (const Loaded &known : m_plugins) {
        if (plugin && known.plugin == plugin)
            reason = QLatin1String("it is loaded already.");
    }
    if (reason.isEmpty()) {
        const Loaded loaded = {file.absoluteFilePath(), plugin, EditorRegistry::openers().mid(editors),
                               FileWizardRegistry::announced().mid(wizards)};
        m_plugins.append(loaded);
        return true;
    }
    if (errorMessage)
        *errorMessage = QString::fromLatin1("The plug-in %1 can not be used: %2")
                            .arg(QDir::toNativeSeparators(file.absoluteFilePath()), reason);
    return false;
}

QStringList PluginManager::initialize()
{
    QStringList messages;
    for (int i = 0; i < m_plugins.size();) {
        if (start(m_plugins[i])) {
            ++i;
            continue;
        }
        messages.append(QString::fromLatin1("The plug-in %1 is not used: it could not start.")
                            .arg(QDir::toNativeSeparators(m_plugins.at(i).path)));
        m_plugins.removeAt(i);
    }
    for (const Loaded &loaded : m_plugins)
        loaded.plugin->extensionsInitialized();
    return messages;
}

bool PluginManager::start(Loaded &loaded)
{
    const int editors = EditorRegistry::openers().size(), wizards = FileWizardRegistry::announced().size();
    if (loaded.plugin->initialize())
        return true;
    for (EditorRegistry::Opener opener : loaded.editors + EditorRegistry::openers().mid(editors))
        EditorRegistry::withdraw(opener);
    for (FileWizardRegistry::Maker maker : loaded.wizards + FileWizardRegistry::announced().mid(wizards))
        FileWizardRegistry::withdraw(maker);
    return false;
}

void PluginManager::shutDown()
{
    while (!m_plugins.isEmpty())
        m_plugins.takeLast().plugin->shutDown();
}

} // namespace ExtSys
