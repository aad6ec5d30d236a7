#include <QtTest>

#include "host/pluginmanager.h"

class PluginsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void life()
    {
        ExtSys::PluginManager manager;
        QString error;
        for (const char *file : {PLUGIN_ONE, PLUGIN_REFUSING, PLUGIN_TWO})
            QVERIFY2(manager.load(file, &error), qPrintable(error));
        const auto editor = [](const char *file) { return Core::EditorRegistry::editorFor(file); };
        QVERIFY(editor("a.refusing"));
        // The second would be shut down after the first has gone.
        QVERIFY(!manager.load(PLUGIN_ONE, &error));
        QCOMPARE(error, QString("The plug-in " PLUGIN_ONE " can not be used: it is loaded already."));
        QCOMPARE(manager.initialize(),
                 QStringList("The plug-in " PLUGIN_REFUSING " is not used: it could not start."));
        QVERIFY(!editor("a.refusing"));
        QVERIFY(!editor("a.refusing2"));
        QVERIFY(editor("a.one"));
        QVERIFY(editor("a.one2"));
        QVERIFY(editor("a.both") == editor("a.two"));
        QCOMPARE(Core::FileWizardRegistry::announced().size(), 2);
        manager.shutDown();
        QCOMPARE(
            qApp->property("calls").toStringList().join(", "),
            QString("one initialize, refusing initialize, two initialize, one extensions, two extensions, "
                    "two shutDown, one shutDown"));
    }

    void refused()
    {
        const QString foreign =
            QLibraryInfo::location(QLibraryInfo::PluginsPath) + "/platforms/libqoffscreen.so";
        const QString reasons[][2] = {
            {"/none/lib.so", "there is no such file."},
            {"/tmp", "it is not a file."},
            {foreign, "it is a plug-in for another program (this one takes "
                      "org.jexworkbench.plugins.IPlugin/1.0)."},
            {QFINDTESTDATA("tst_plugins.cpp"), "'"}, // the loader's own words
        };
        for (const auto &row : reasons) {
            ExtSys::PluginManager manager;
            QString error;
            QVERIFY(!manager.load(row[0], &error));
            QCOMPARE(manager.initialize(), QStringList()); // has none
            QVERIFY2(error.startsWith("The plug-in " + row[0] + " can not be used: " + row[1]),
                     qPrintable(error));
            QVERIFY(error.endsWith('.'));
        }
    }
};

QTEST_MAIN(PluginsTest)
#include "tst_plugins.moc"
