// Plug-ins from one source: NAME writes down what is asked of it, REFUSES (0 or 1) says no to initialize().

#include <QCoreApplication>
#include <QVariant>

#include "host/editorregistry.h"
#include "host/filewizard.h"
#include "host/iplugin.h"

const bool announced = [] {
    const auto opensNothing = [](const QString &, const DEV::DeviceArg &) { return false; };
    Core::EditorRegistry::announce(NAME, opensNothing);
    Core::EditorRegistry::announce("both", opensNothing);
    Core::FileWizardRegistry::announce([]() -> Core::IFileWizardFactory * { return nullptr; });
    return true;
}();

class TestPlugin : public ExtSys::IPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID EXTSYS_IPLUGIN_IID)
    Q_INTERFACES(ExtSys::IPlugin)

public:
    bool initialize() override
    {
        note("initialize");
        Core::EditorRegistry::announce(NAME "2",
                                       [](const QString &, const DEV::DeviceArg &) { return false; });
        return !REFUSES;
    }
    void extensionsInitialized() override { note("extensions"); }
    void shutDown() override { note("shutDown"); }

private:
    static void note(const char *call)
    {
        const QStringList calls = qApp->property("calls").toStringList();
        qApp->setProperty("calls", calls + QStringList(QString(NAME " ") + call));
    }
};

#include "testplugin.moc"
