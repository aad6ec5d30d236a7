#include <QFile>
#include <QTemporaryDir>
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
        QCOMPARE(manager.initialize(),
                 QStringList("The plug-in " PLUGIN_REFUSING " is not used: it could not start."));
        QCOMPARE(manager.loadedFiles(), QStringList({PLUGIN_ONE, PLUGIN_TWO}));
        manager.shutDown();
        QCOMPARE(
            qApp->property("calls").toStringList().join(", "),
            QString("one initialize, refusing initialize, two initialize, one extensions, two extensions, "
                    "two shutDown, one shutDown"));
    }

    void refused_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("reason");
        QTest::newRow("missing") << "/none/lib.so"
                                 << "there is no such file.";
        QTest::newRow("folder") << "/tmp"
                                << "it is not a file.";
        QTest::newRow("foreign") << PLUGIN_FOREIGN
                                 << "it is a plug-in for another program (this one takes "
                                    "org.jexworkbench.plugins.IPlugin/1.0).";
        QTest::newRow("no library") << QFINDTESTDATA("tst_plugins.cpp") << "'";
    }
    void refused()
    {
        QFETCH(QString, path);
        QFETCH(QString, reason);
        ExtSys::PluginManager manager;
        QString error;
        QVERIFY(!manager.load(path, &error));
        QVERIFY2(error.startsWith("The plug-in " + path + " can not be used: " + reason), qPrintable(error));
        QVERIFY(error.endsWith('.'));
        QVERIFY(manager.loadedFiles().isEmpty());
    }
};

QTEST_MAIN(PluginsTest)
#include "tst_plugins.moc"
