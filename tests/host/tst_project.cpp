#include <sys/stat.h>
#include <unistd.h>

#include "host/designmanager.h"
#include "host/eventmanager.h"
#include "host/filelist.h"
#include "host/project.h"
#include "tests/host/projecttext.h"
#include "tests/support/files.h"
#include "tests/support/tablerow.h"

using Core::Project;
using Core::ProjectData;
using Core::ProjectManager;

namespace {

// Every host event as one line, file names without their folder.
class Recorder : public QUtil::IEventHandler
{
public:
    QStringList lines;

    Recorder() { listen(&QUtil::EventManager::subscribe); }
    ~Recorder() override { listen(&QUtil::EventManager::unsubscribe); }
    void handleIEvent(const QUtil::IEvent *event) override
    {
        QStringList words(event->topic());
        const QMap<QString, QVariant> data = event->data();
        for (auto it = data.begin(); it != data.end(); ++it)
            words << it.key() + "=" + it->toString().section('/', -1);
        lines << words.join(' ');
    }

private:
    void listen(void (QUtil::EventManager::*change)(QUtil::IEventHandler *, const QString &))
    {
        for (const char *topic : {"File.Add", "File.Modified", "File.Remove", "File.Change.Enable",
                                  "File.Change.Type", "Option.Change", "Device.Change"})
            (QUtil::EventManager::instance()->*change)(this, QString("TE.") + topic);
    }
};

const char fullProject[] = R"({
  "version": 1, "name": "demo", "topModule": "top", "verilogStandard": "1364-2005", "synthesisTool": "Yosys",
  "files": [{"path": "rtl/top.v"}, {"path": "../common/a b.v", "type": "SystemVerilog"},
            {"path": "old.vhd", "enabled": false, "library": "uart"}, {"path": "cells.v", "onlyWhenUsed": true}],
  "includePaths": ["inc", "/opt/inc"], "libraryPaths": ["../lib"], "librarySuffixes": [".v", ".vo"],
  "defines": ["WIDTH=8"], "undefines": ["SYNTHESIS"], "parameters": ["DEPTH=4"],
  "device": {"series": "S", "device": "D", "package": "P", "partNumber": "é"}
})";

} // namespace

class ProjectTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // The layout of the text is that of the example's project file.
    void loadThenSaveKeepsEverything()
    {
        const Folder dir;
        const QString path = dir.path("p/demo.jexprj");
        put(path, fullProject);
        Project project;
        QString error;
        QVERIFY2(project.load(path, &error), qPrintable(error));
        QCOMPARE(project.data().files.at(1).path, dir.path("common/a b.v"));
        QVERIFY(!project.isModified());
        project.setOption("TopModule", "other");
        QVERIFY(project.isModified());
        project.setOption("TopModule", "top");
        QVERIFY2(project.save(&error), qPrintable(error));
        QVERIFY(!project.isModified());
        QCOMPARE(QJsonDocument::fromJson(contents(path)), QJsonDocument::fromJson(fullProject));

        QVERIFY(QDir().mkpath(dir.path("elsewhere/deep")));
        QVERIFY2(project.saveAs(dir.path("elsewhere/deep/q.jexprj"), &error), qPrintable(error));
        QCOMPARE(project.data().includePaths.join(' '), QString("../../p/inc /opt/inc"));
        QCOMPARE(project.data().files.at(0).path, dir.path("p/rtl/top.v"));
    }

    void typesOfNames()
    {
        QString types;
        for (const char *name :
             {"a.v", "b.VH", "c.vlg", "d.sv", "e.svh", "f.vhd", "g.VHDL", "h.zub", "i.vp", "v"})
            types += QString::number(TE::fileTypeFromName(name)) + (TE::isHeaderName(name) ? "h " : " ");
        QCOMPARE(types, QString("2 2h 2 3 3h 4 4 1 1 1 "));
        QCOMPARE(TE::sourcePatterns(), QString("*.v *.vh *.vlg *.sv *.svh *.vhd *.vhdl"));
    }

    void refusedFiles_data()
    {
        textColumns("text");
        row("line 3: unexpected end of input; expected string literal.", "{\n\"version\": 1,\n");
        row("it must hold one object.", "[]");
        row("it is a named pipe, not a regular file.", "");
        row("\"version\" is missing.", "{}");
        row("its version 2 is newer than this program.", R"({"version": 2})");
        row("its version 4294967297 is newer than this program.", R"({"version": 4294967297})");
        row("its version 1e+30 is newer than this program.",
            R"({"version": 1000000000000000000000000000000})");
        row("\"version\" must be 1.", R"({"version": -4294967295})");
        row("\"version\" must be a whole number.", R"({"version": 1.5})");
        row("line 1: the number 1e400 is too large.", R"({"version": 1e400})");
        row("it is nested more than 16 deep.", QByteArray(1000000, '['));
        const auto part = [](const char *fault, const char *text) {
            row(fault, QByteArray(R"({"version": 1, )") + text + '}');
        };
        part(R"("tops" is not known here.)", R"("tops": "x")");
        part(R"("defines" must be a list.)", R"("defines": "x")");
        part(R"("defines" must hold texts only.)", R"("defines": [1])");
        part(R"("files", entry 2, "path" is missing.)", R"("files": [{"path": "a.v"}, {}])");
        part(R"("files", entry 1, "type" must be Verilog, SystemVerilog, VHDL or Other.)",
             R"("files": [{"path": "a", "type": "C"}])");
        part(R"("files", entry 1, "enabled" must be true or false.)",
             R"("files": [{"path": "a", "enabled": 1}])");
        part(R"("device" must be an object.)", R"("device": [])");
        part(R"("name" stands twice.)", R"("name": "a", "name": "a")");
        part(R"("files", entry 2, "path" stands twice.)",
             R"("files": [{"path": "a"}, {"path": "a", "type": "VHDL", "path": "b"}])");
        part(R"("device", "package" stands twice.)", R"("device": {"package": "", "package": ""})");
        part(R"("files", entry 1, "path" holds a NUL character.)", R"("files": [{"path": "a.v\u0000b"}])");
        part(R"("defines" holds a NUL character.)", R"("defines": ["A", "B\u0000"])");
    }
    void refusedFiles()
    {
        QFETCH(QString, text);
        const Folder dir;
        const QString path = dir.path("demo.jexprj");
        if (text.isEmpty())
            QCOMPARE(mkfifo(qPrintable(path), 0600), 0);
        else
            put(path, text.toUtf8());
        Project project;
        QVERIFY(project.addFile(dir.write("kept.v", "")));
        QString error;
        QVERIFY(!project.load(path, &error));
        QCOMPARE(error, "Can not read the project " + path + ": " + QTest::currentDataTag());
        QCOMPARE(project.data().files.size(), 1);
        QCOMPARE(project.filePath(), QString());
    }

    // The toolkit takes names that begin with a colon for its own resources.
    void oddNames()
    {
        const Folder dir;
        const QString path =
            dir.write("p/demo.jexprj", R"({"version": 1.0, "files": [{"path": ":/a.v"}, {"path": ":b.v"}],
                                       "includePaths": [":inc", "../-x"]})");
        Project project;
        QString error;
        QVERIFY2(project.load(path, &error), qPrintable(error));
        QCOMPARE(projectWords(project.data(), dir.path("p")).join(", "),
                 QString(":/a.v:2, :b.v:2, I::inc, I:../-x"));
        QCOMPARE(project.absolutePath(":inc"), dir.path("p/:inc"));
        QVERIFY2(project.save(&error), qPrintable(error));
        QVERIFY2(project.load(path, &error), qPrintable(error));
        QCOMPARE(projectWords(project.data(), dir.path("p")).join(", "),
                 QString(":/a.v:2, :b.v:2, I::inc, I:../-x"));
        QVERIFY(project.saveAs(dir.path("q.jexprj"), &error));
        QCOMPARE(project.data().includePaths.join(' '), QString("p/:inc -x"));
    }

    // Reading the file again tells of each difference once.
    void reloading()
    {
        const Folder dir;
        const QString path = dir.write("demo.jexprj", fullProject);
        Project project;
        QVERIFY(project.load(path, nullptr));
        Recorder recorder;
        QVERIFY(!project.fileMark().isOutdated(path));
        QString text = fullProject;
        text.replace("rtl/top.v", "rtl/next.v").replace("SystemVerilog", "VHDL").replace("WIDTH=8", "W=1");
        text.replace("DEPTH=4", "DEPTH=5").replace(", \"onlyWhenUsed\": true", "");
        dir.write("demo.jexprj", text.replace("\"enabled\": false", "\"enabled\": true").toUtf8());
        QVERIFY(project.fileMark().isOutdated(path));
        project.setOption("TopModule", "edited");
        recorder.lines.clear();
        QVERIFY(project.reload(nullptr));
        QVERIFY(!project.isModified());
        QVERIFY(!project.fileMark().isOutdated(path));
        QCOMPARE(recorder.lines.join('\n'), QString("TE.File.Add file=next.v\n"
                                                    "TE.File.Change.Type file=a b.v previous=3 type=4\n"
                                                    "TE.File.Change.Enable enable=true file=old.vhd type=4\n"
                                                    "TE.File.Change.Type file=cells.v previous=2 type=2\n"
                                                    "TE.File.Remove enable=true file=top.v type=2\n"
                                                    "TE.Option.Change option=TopModule\n"
                                                    "TE.Option.Change option=Defines\n"
                                                    "TE.Option.Change option=Parameters"));
        dir.write("demo.jexprj", "{");
        QString error;
        QVERIFY(!project.reload(&error));
        QCOMPARE(project.data().files.size(), 4);
    }

    void everyChangePostsItsEvent()
    {
        const Folder dir;
        Project project;
        QVERIFY(project.saveAs(dir.path("p.jexprj"), nullptr));
        ProjectManager::setCurrentProject(&project);
        Recorder recorder;
        for (const char *name : {"a.v", "n.zub"})
            dir.write(name, "");
        QString added;
        for (const char *name : {"a.v", "./a.v", "n.zub", "none.v"})
            added += project.addFile(name) ? "yes " : "no ";
        QCOMPARE(added, QString("yes no yes no ")); // what is not there can not be added
        project.setFileEnabled("a.v", true);
        project.setFileEnabled("a.v", false);
        project.setFileType("a.v", TE::SystemVerilogFile);
        project.setFileLibrary("a.v", "lib");
        project.setFileLibrary("a.v", "lib");
        project.setOption("IncludePath", QStringList("inc"));
        project.setOption("IncludePath", QStringList("inc"));
        project.setOption("Verilog_Standard", "1800-2017");
        project.setOption("nonsense", "x");
        DEV::DeviceArg device;
        device.device = "d";
        project.setDevice(device);
        project.setDevice(device);
        project.removeFile("a.v");
        project.removeFile("a.v");
        QCOMPARE(recorder.lines.join('\n'), QString("TE.File.Add file=a.v\n"
                                                    "TE.File.Add file=n.zub\n"
                                                    "TE.File.Change.Enable enable=false file=a.v type=2\n"
                                                    "TE.File.Change.Type file=a.v previous=2 type=3\n"
                                                    "TE.File.Change.Type file=a.v previous=3 type=3\n"
                                                    "TE.Option.Change option=IncludePath\n"
                                                    "TE.Option.Change option=Verilog_Standard\n"
                                                    "TE.Device.Change\n"
                                                    "TE.File.Remove enable=false file=a.v type=3"));
    }

    void designManagerAnswersForTheOpenProject()
    {
        const TE::DesignManager *manager = TE::TaskEngine::instance()->designManager();
        QVERIFY(manager->getSourceFileInfo().isEmpty());
        QCOMPARE(manager->workingDir(), QString());
        QVERIFY(!manager->getOptionValue("TopModule").isValid());
        const Folder dir;
        Project project;
        QVERIFY(project.load(dir.write("demo.jexprj", fullProject), nullptr));
        ProjectManager::setCurrentProject(&project);

        const QMap<QString, QVariant> info = manager->getSourceFileInfo();
        QStringList files;
        for (const QVariant &entry : info.value("Files").toList()) {
            const QVariantMap file = entry.toMap();
            files << file["Path"].toString() + ":" + file["Type"].toString() +
                         (file["OnlyWhenUsed"].toBool() ? "?" : "");
        }
        QCOMPARE(files.join(' '), dir.path("rtl/top.v") + ":2 " +
                                      QDir::cleanPath(dir.path() + "/../common/a b.v") + ":3 " +
                                      dir.path("cells.v") + ":2?");
        QCOMPARE(info.value("DisabledFiles").toStringList(), QStringList(dir.path("old.vhd")));
        QCOMPARE(info.value("LibrarySuffix").toStringList().join(' '), QString(".v .vo"));
        QCOMPARE(info.value("IncludePath").toStringList(), QStringList({dir.path("inc"), "/opt/inc"}));
        QCOMPARE(info.value("Top").toString() + info.value("WorkingDir").toString(), "top" + dir.path());
        QCOMPARE(manager->getFileInfo("old.vhd").type, int(TE::VhdlFile));
        QCOMPARE(manager->getFileInfo(dir.path("old.vhd")).enabled, false);
        QCOMPARE(manager->getFileInfo("nowhere.v").type, int(TE::UnknownFile));
        QCOMPARE(manager->currentDevice().package, QString("P"));
    }

    // Each kind of change on disk is reported once, also after the file was replaced or away for a while.
    void designFilesAreWatched()
    {
        const Folder dir;
        const QString path = dir.path("a.v");
        put(path, "1");
        Project project;
        project.addFile(path);
        for (const char *other : {"b.v", "n.zub"})
            project.addFile(dir.write(other, "1"));
        ProjectManager::setCurrentProject(&project);
        Recorder recorder;
        const QStringList one("TE.File.Modified file=a.v");
        put(path, "22");
        put(path, "333");
        dir.write("n.zub", "22");
        QTRY_COMPARE(recorder.lines, one);
        for (int round = 0; round < 4; ++round) {
            recorder.lines.clear();
            // The old file may live on under another name.
            if (round > 1)
                QCOMPARE(::link(qPrintable(path), qPrintable(dir.path(QString("held%1").arg(round)))), 0);
            QCOMPARE(rename(qPrintable(dir.write("new", "4")), qPrintable(path)), 0);
            QTRY_COMPARE(recorder.lines, one);
        }
        recorder.lines.clear();
        QVERIFY(QFile::remove(path));
        QTRY_COMPARE(recorder.lines, one);
        for (const char *text : {"back", "again"}) {
            recorder.lines.clear();
            put(path, text);
            QTRY_COMPARE(recorder.lines, one);
        }
        recorder.lines.clear();
        project.removeFile(path);
        put(path, "not ours any more");
        dir.write("b.v", "22");
        const QStringList removal("TE.File.Remove enable=true file=a.v type=2");
        QTRY_COMPARE(recorder.lines, removal + QStringList("TE.File.Modified file=b.v"));
    }

    // In messages %1 is the list's path and %2 its folder; a list that fails adds nothing.
    void fileLists_data()
    {
        textColumns("expected", "message");
        row("a.v b.sv\n\"my dir/c d.vhd\" a.v ./a.v\n", "a.v:2, b.sv:3, my dir/c d.vhd:4", "");
        row("+incdir+inc+lib -Iinc\n+define+X=1+Y -DZ=\"a b\"\n-y lib +libext+.v -v a.v --top-module t",
            "a.v:2?, I:inc, I:lib, y:lib, ext:.v, D:X=1, D:Y, D:Z=a b, top:t", "");
        row("+define+F=\\\"x.hex\\\" -D \"G=\\\"a b\\\"\" -U V -UW -GN=1 -pvalue+M=2 -I inc -define H a.v",
            "a.v:2, I:inc, D:F=\"x.hex\", D:G=\"a b\", D:H, U:V, U:W, G:N=1, G:M=2", "");
        row("-work one \"my dir/c d.vhd\" -F libs.f e.vhd a.v",
            "my dir/c d.vhd:4@one, lib/f.vhd:4@two, e.vhd:4@one, a.v:2", "");
        row("lib inc/../lib -v lib\\l.v", "lib/f.vhd:4, lib/l.v:2", "");
        row("// x.v\n# y.v\n/* z.v\n */ a.v // b.sv\nlib//l.v\\\n b.sv", "a.v:2, lib/l.v:2, b.sv:3", "");
        row("a.v \\\r\nb.sv\r\n", "a.v:2, b.sv:3", "");
        row("$JEX_T/l.v ${JEX_T}/l.v \"$(JEX_T)/l.v\"", "lib/l.v:2", "");
        row("a.v -sv", "a.v:3", "");
        row("-F lib/in.f -f lib/in2.f", "lib/l.v:2, a.v:2", "");
        row("a.v\n-timescale=1ns/1ps", "a.v:2", "%1:2: the option \"-timescale=1ns/1ps\" was passed over.");
        row("-timescale 1ns/1ps -l a.v -quiet b.sv -seed 3 +x -q -r a.v", "b.sv:3, a.v:2",
            "%1:1: the option \"-timescale 1ns/1ps\" was passed over.\n"
            "%1:1: the option \"-l a.v\" was passed over.\n%1:1: the option \"-quiet\" was passed over.\n"
            "%1:1: the option \"-seed 3\" was passed over.\n%1:1: the option \"+x\" was passed over.\n"
            "%1:1: the option \"-q\" was passed over.\n%1:1: the option \"-r\" was passed over.");
        row("C:\\x\\a.v", "",
            "%1:1: there is no file \"C:\\x\\a.v\": its path is one of another system. Write it as seen from "
            "the "
            "list.");
        row("+incdir+my\\ dir+other", "", "%1:1: there is no folder \"%2/other\".");
        row("a.v\nx.v", "", "%1:2: there is no file \"%2/x.v\".");
        row("a.v\npipe", "", "%1:2: \"%2/pipe\" is a named pipe, not a source.");
        row("-f pipe", "",
            "%1:1: the list \"%2/pipe\" can not be read (it is a named pipe, not a regular file). Check its "
            "name, and that you may read it.");
        row("\n-f /dev/stdin", "",
            "%1:2: the list \"/dev/stdin\" can not be read (it is a device, not a regular file). Check its "
            "name, and that you may read it.");
        row(":o.v", ":o.v:2", "");
        row("a.v -y", "", "%1:1: \"-y\" names nothing.");
        row("\n-f list.f", "", "%1:2: the list \"%1\" reads itself.");
        row("-f none.f", "",
            "%1:1: the list \"%2/none.f\" can not be read (No such file or directory). Check its name, and "
            "that you may read it.");
        row("a.v\n\"b.sv", "", "%1:2: these quotes do not end.");
        row("a.v\n/* b", "", "%1:2: this comment does not end.");
        row("$JEX_NOT_SET/a.v", "", "%1:1: the environment variable \"JEX_NOT_SET\" is not set.");
        row("x.v +incdir+$JEX_NOT_SET+$JEX_T\n-y $JEX_NONE a.v -y none $JEX_NOT_SET\ny.v", "",
            "%1:1: the environment variable \"JEX_NOT_SET\" is not set.\n"
            "%1:2: the environment variable \"JEX_NONE\" is not set.\n"
            "%1:1: there is no file \"%2/x.v\".\n%1:2: there is no folder \"%2/none\".\n"
            "%1:3: there is no file \"%2/y.v\".");
    }
    void fileLists()
    {
        auto [expected, message] = textCells("expected", "message");
        const Folder dir;
        for (const char *file :
             {"a.v", "b.sv", "e.vhd", "my dir/c d.vhd", "lib/l.v", "lib/f.vhd", "inc/h.vh"})
            dir.write(file, "");
        dir.write("libs.f", "-work two lib/f.vhd");
        dir.write("lib/in.f", "l.v");
        dir.write("./:o.v", "");
        QCOMPARE(mkfifo(qPrintable(dir.path("pipe")), 0600), 0);
        dir.write("lib/in2.f", "a.v\nl.v");
        dir.write("list.f", QTest::currentDataTag());
        qputenv("JEX_T", dir.path("lib").toLocal8Bit());
        ProjectData data;
        QStringList messages;
        const bool read = Core::readFileList(dir.path("list.f"), dir.path(), data, messages);
        QCOMPARE(messages.join('\n'), message.replace("%1", dir.path("list.f")).replace("%2", dir.path()));
        QCOMPARE(projectWords(data, dir.path()).join(", "), expected);
        QCOMPARE(read, !expected.isEmpty());
    }
};

QTEST_GUILESS_MAIN(ProjectTest)
#include "tst_project.moc"
