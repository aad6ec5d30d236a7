// The folder for what is made: nothing that somebody else wrote is lost.

#include "insertion/outputfolder.h"
#include "tests/elaboration/sources.h"
#include "tests/support/tablerow.h"

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
        QCOMPARE(entriesOf(folder.path("made")), QStringList("map.json"));
        const QMap<QString, QByteArray> bad{{"design.v", "4"}, {"no/folder", "5"}};
        QVERIFY(!output.write(bad, &error));
        QVERIFY2(fits(error, "* cannot be written: *. Nothing was changed."), qPrintable(error));
        QCOMPARE(entriesOf(folder.path("made")), QStringList("map.json"));
        QCOMPARE(entriesOf(folder.path()), QStringList("made"));
    }

    // What somebody else wrote is neither replaced nor removed, when it came before the work and when it came
    // while that was done.
    void foreignFolders_data()
    {
        // "file": in the folder "made", to which "link" leads
        textColumns("file", "text", "named", "message");
        const char ours[] = "{\"madeBy\": \"jex insert\"}";
        row("other name", "mine.txt", ours, "made",
            "*/made holds other files (mine.txt), which would be lost. *");
        row("our name", "design.v", ours, "made", "*/made holds files that were not made here (design.v), *");
        row("map of another program", "map.json", "{\"top\": \"jex insert\"}", "made",
            "*/made holds files that were not made here (map.json), *");
        row("map by another program", "map.json", "{\"madeBy\": \"another\"}", "made",
            "*/made holds files that were not made here (map.json), *");
        row("folder", "design.v/mine", ours, "made", "*/made holds other files (design.v), *");
        row("link", "map.json", ours, "link", "*/link is not a folder. *");
        row("link with a slash", "map.json", ours, "link/", "*/link/ is not a folder. *");
        row("source", "map.json", ours, "made", "*/made is a folder of the sources: map.json is in it. *");
    }
    void foreignFolders()
    {
        auto [file, text, named, message] = textCells("file", "text", "named", "message");
        Folder folder;
        folder.write("made/" + file, text.toUtf8());
        QFile::link(folder.path("made"), folder.path("link"));
        const QByteArray row = QTest::currentDataTag();
        const QStringList sources(row == "source" ? folder.path("made/map.json") : "/none");
        const Insertion::OutputFolder output(folder.path() + '/' + named, sources);
        QString error;
        QVERIFY(!output.write({{"map.json", "new"}, {"design.v", "new"}}, &error));
        QVERIFY2(fits(error, message), qPrintable(error));
        QCOMPARE(output.fault(), error);
        QCOMPARE(QString(folder.read("made/" + file)), text);
        QCOMPARE(entriesOf(folder.path()), QStringList({"link", "made"}));
    }
};

QTEST_GUILESS_MAIN(OutputFolderTest)
#include "tst_outputfolder.moc"
