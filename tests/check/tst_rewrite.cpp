#include <QtTest>

#include "check/configuration.h"
#include "tests/support/files.h"

// What a command does when somebody else writes the file between its reading and its writing.
class RewriteTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void refusesWhatHasChanged()
    {
        const QByteArray loose = R"(<jexconfig version="1" mode="Lite"><core number="0"/></jexconfig>)";
        const QByteArray other = R"(<jexconfig version="1" mode="Lite"><core number="1"/></jexconfig>)";
        const Folder dir;
        const QString path = dir.write("a.zub", loose);
        RTLJEX::Configuration configuration;
        QString error;
        QVERIFY2(configuration.read(path, &error), qPrintable(error));
        dir.write("a.zub", other); // of the same size, at the same moment
        QVERIFY(!configuration.rewrite(path, &error));
        QCOMPARE(error, "The file \"" + path +
                            "\" has changed since it was read, and is left as it is. Run the command again.");
        QCOMPARE(dir.read("a.zub"), other);
        dir.write("new.zub", loose); // written anew, but the same
        QVERIFY(QFile::remove(path) && QFile::rename(dir.path("new.zub"), path));
        QVERIFY2(configuration.rewrite(path, &error), qPrintable(error));
        QVERIFY(dir.read("a.zub").contains("captureAmount"));
        QVERIFY(QFile::remove(path)); // nothing is lost
        QVERIFY(configuration.rewrite(path, &error) && QFile::exists(path));
    }
};

QTEST_GUILESS_MAIN(RewriteTest)
#include "tst_rewrite.moc"
