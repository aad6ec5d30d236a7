#include <QPluginLoader>
#include <QTest>

#include "host/editorregistry.h"
#include "host/filewizard.h"
#include "host/iplugin.h"

// The library as the host meets it: loaded by file name, without being linked.
class PluginLoadTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void load()
    {
        QVERIFY(!Core::EditorRegistry::editorFor("a.zub"));
        QPluginLoader loader(PLUGIN_FILE);
        QVERIFY2(loader.load(), qPrintable(loader.errorString()));
        QCOMPARE(loader.metaData().value("IID").toString(), QString(EXTSYS_IPLUGIN_IID));
        ExtSys::IPlugin *plugin = qobject_cast<ExtSys::IPlugin *>(loader.instance());
        QVERIFY(plugin);
        QCOMPARE(loader.instance(), static_cast<QObject *>(plugin));

        QVERIFY(Core::EditorRegistry::editorFor("a.zub"));
        QVERIFY(plugin->initialize());
        Core::FileWizardRegistry::createFactories();
        plugin->extensionsInitialized();
        QCOMPARE(Core::FileWizardRegistry::factories().size(), 1);
        const Core::IFileWizardFactory *factory = Core::FileWizardRegistry::factories().first();
        QCOMPARE(factory->id() + " | " + factory->displayName() + " | " + factory->description(),
                 QString("M.Wizard.JEX | RTL JEX Config File | Create a RTL JEX Config File."));

        Core::FileWizardRegistry::clear();
        Core::EditorRegistry::clear();
        plugin->shutDown();
        QVERIFY(loader.unload());
    }
};

QTEST_MAIN(PluginLoadTest)
#include "tst_pluginload.moc"
