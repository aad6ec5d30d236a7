// The folder for what is made: nothing that somebody else wrote is lost.

#include "insertion/outputfolder.h"
#include "tests/elaboration/sources.h"

#include <QtTest>

class OutputFolderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Whole or not at all.
    void outputFolder()
    {
        Folder folder;
        QString error;
        const Insertion::OutputFolder output(folder.path("made"), {});
        const QByteArray map = "{\"top\": \"top\", \"madeBy\": \"jex insert\"}";
        const QMap<QString, QByteArray> files{{"map.json", map}, {"design.v", "1"}}, less{{"map.json", map}};
        QVERIFY2(output.write(files, &error), qPrintable(error));
        QVERIFY2(output.write(less, &error), qPrintable(error));
        QCOMPARE(QDir(folder.path("made")).entryList(QDir::Files), QStringList("map.json"));
        const QMap<QString, QByteArray> bad{{"design.v", "4"}, {"no/folder", "5"}};
        QVERIFY(!output.write(bad, &error));
        QVERIFY2(fits(error, "* cannot be written: *. Nothing was changed."), qPrintable(error));
        QCOMPARE(QDir(folder.path("made")).entryList(QDir::Files), QStringList("map.json"));
        QCOMPARE(QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
                 QStringList("made"));
    }

    // What somebody else wrote is neither replaced nor removed, when it came before the work and when it came
    // while that was done.
    void foreignFolders_data()
    {
        QTest::addColumn<QString>("file"); // in the folder "made", to which "link" leads
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QString>("named");
        QTest::addColumn<QString>("message");
        const QByteArray ours = "{\"madeBy\": \"jex insert\"}";
        QTest::newRow("other name") << "mine.txt" << ours << "made"
                                    << "*/made holds other files (mine.txt), which would be lost. *";
        QTest::newRow("our name") << "design.v" << ours << "made"
                                  << "*/made holds files that were not made here (design.v), *";
        QTest::newRow("map of another program")
            << "map.json" << QByteArray("{\"top\": \"jex insert\"}") << "made"
            << "*/made holds files that were not made here (map.json), *";
        QTest::newRow("folder") << "design.v/mine" << ours << "made"
                                << "*/made holds other files (design.v), *";
        QTest::newRow("link") << "map.json" << ours << "link"
                              << "*/link is not a folder. *";
        QTest::newRow("link with a slash") << "map.json" << ours << "link/"
                                           << "*/link/ is not a folder. *";
        QTest::newRow("source") << "map.json" << ours << "made"
                                << "*/made is a folder of the sources: map.json is in it. *";
    }
    void foreignFolders()
    {
        QFETCH(QString, file);
        QFETCH(QByteArray, text);
        QFETCH(QString, named);
        QFETCH(QString, message);
        Folder folder;
        folder.write("made/" + file, text);
        QFile::link(folder.path("made"), folder.path("link"));
        const bool isSource = QByteArray(QTest::currentDataTag()) == "source";
        const Insertion::OutputFolder output(folder.path() + '/' + named,
                                             isSource ? QStringList(folder.path("made/map.json"))
                                                      : QStringList());
        QString error;
        QVERIFY(!output.write({{"map.json", "new"}, {"design.v", "new"}}, &error));
        QVERIFY2(fits(error, message), qPrintable(error));
        QCOMPARE(output.fault(), error);
        QCOMPARE(folder.read("made/" + file), text);
        QCOMPARE(QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
                 QStringList({"link", "made"}));
    }
};

QTEST_GUILESS_MAIN(OutputFolderTest)
#include "tst_outputfolder.moc"
