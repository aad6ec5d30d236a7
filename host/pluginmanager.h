#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include "host/editorregistry.h"
#include "host/filewizard.h"

namespace ExtSys {

class IPlugin;

// Loads plug-ins and takes them through their life. The libraries stay loaded until the process ends:
// widgets of a plug-in may go late.
class PluginManager
{
public:
    // False with a sentence that names the file and why it can not be used. Nothing is loaded twice.
    bool load(const QString &path, QString *errorMessage);

    // Calls initialize() of all that are loaded, then extensionsInitialized() of those that agreed. The
    // others are not used, and what they announced is withdrawn; a sentence names each.
    QStringList initialize();

    // In reverse order. Afterwards no plug-in is left.
    void shutDown();

private:
    struct Loaded
    {
        QString path;
        IPlugin *plugin;                             // belongs to the library
        QList<Core::EditorRegistry::Opener> editors; // that it announced
        QList<Core::FileWizardRegistry::Maker> wizards;
    };

    bool start(Loaded &loaded);

    QList<Loaded> m_plugins;
};

} // namespace ExtSys
