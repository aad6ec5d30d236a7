#include "host/designmanager.h"
#include "tests/support/files.h"
#include "tests/support/messagelist.h"
#include "tests/support/modaldriver.h"
#include "tests/support/tablerow.h"
#include "workbench/messagepane.h"
#include "workbench/sourcecommand.h"
#include "workbench/topmodules.h"

using namespace Workbench;

namespace {

Message message(Message::Kind kind, const QString &text)
{
    Message made;
    made.kind = kind;
    made.text = text;
    return made;
}

QString shown(const MessagePane &pane)
{
    QStringList lines;
    const QAbstractItemModel *model = pane.findChild<QListView *>()->model();
    for (int row = 0; row < model->rowCount(); ++row)
        lines << model->index(row, 0).data().toString().section("  ", 1);
    return lines.join('|');
}

} // namespace

// The list of messages, the places that they name, and the command that shows those.
class MessagesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whatIsNotSaidAgainIsPast()
    {
        MessageModel model;
        const Message a = message(Message::Error, "a"), b = message(Message::Warning, "b"),
                      c = message(Message::Error, "c");
        model.setCurrent("design", {a, b});
        model.add(message(Message::Note, "Opened."));
        model.setCurrent("view", {a});
        model.setCurrent("design", {c, b});
        QCOMPARE(messageLines(model).join('|'), QString("(E a)|W b|N Opened.|E a|E c"));
        model.setCurrent("design", {a});
        model.setCurrent("view", {});
        QCOMPARE(messageLines(model).join('|'), QString("(E a)|(W b)|N Opened.|(E a)|(E c)|E a"));
        QCOMPARE(model.index(0).data(Qt::AccessibleTextRole).toString(), QString("Error, past: a"));
    }

    void filteredCopiedSavedCleared()
    {
        const Folder dir;
        MessagePane pane;
        pane.resize(400, 200);
        pane.show();
        pane.addMessage("bad\nreally", true);
        pane.addMessage("WARNING: odd", false);
        pane.addMessage("fine", false);
        QCOMPARE(shown(pane), QString("bad\nreally|WARNING: odd|fine"));
        shownButton(&pane, "Warnings (1)")->click();
        QCOMPARE(shown(pane), QString("bad\nreally|fine"));

        shownButton(&pane, "Copy")->click();
        const QString copied = QGuiApplication::clipboard()->text();
        QVERIFY(copied.contains("bad\nreally\n"));
        QVERIFY(copied.endsWith("fine\n"));
        QVERIFY(!copied.contains("odd"));
        auto *list = pane.findChild<QListView *>();
        list->setCurrentIndex(messageRow(&pane, "fine"));
        list->setFocus();
        QVERIFY(QTest::qWaitForWindowActive(&pane));
        QTest::keyClick(list, Qt::Key_C, Qt::ControlModifier);
        QVERIFY(QGuiApplication::clipboard()->text().endsWith("  fine\n"));
        QCOMPARE(QGuiApplication::clipboard()->text().count('\n'), 1);

        ModalDriver user;
        user.then(choosing(dir.path("kept.txt")));
        shownButton(&pane, "Save...")->click();
        QCOMPARE(QString(dir.read("kept.txt")), copied);
        shownButton(&pane, "Clear")->click();
        QCOMPARE(messageText(pane), QString());
    }

    void longLinesAreShownWhole()
    {
        MessagePane pane;
        pane.resize(300, 300);
        pane.show();
        pane.addMessage("short", false);
        pane.addMessage(QString("word ").repeated(40), false);
        auto *list = pane.findChild<QListView *>();
        QTRY_VERIFY(list->visualRect(messageRow(&pane, "word ")).height() >=
                    3 * list->visualRect(messageRow(&pane, "short")).height());
    }

    void places_data()
    {
        textColumns("places");
        row("ERROR: %1/a.v:12: no such thing", "a.v:12");
        row("ERROR: %1/odd : name:3.v:4: text", "odd : name:3.v:4");
        row("Module m is declared a second time. What %1/a.v:3 declares is used.", "a.v:3");
        row("%1/a.v:1: and \"%1/b c.v:2\", %1/a.v:1 again", "a.v:1|b c.v:2");
        row("ERROR: %1/gone.v:12: text, sub%1/a.v:3", "");
        row("top/u0/a[3:0] is missing", "");
        row("%1:12: a folder", "");
        row("no place", "");
    }
    void places()
    {
        const Folder dir;
        for (const char *name : {"a.v", "b c.v", "odd : name:3.v"})
            dir.write(name, "");
        QStringList found;
        for (const SourcePlace &place :
             sourcePlaces(QString(QTest::currentDataTag()).replace("%1", dir.path())))
            found << QDir(dir.path()).relativeFilePath(place.file) + ':' + QString::number(place.line);
        QTEST(found.join('|'), "places");
    }

    // A configuration may name as many signals as it likes that no design has.
    void manyFindings()
    {
        MessagePane pane;
        pane.show();
        QList<Message> messages;
        for (int i = 0; i < 100000; ++i) {
            messages << Message();
            messages.last().text = "Missing: " + QString::number(i);
        }
        for (int i = 0; i < 3; ++i)
            pane.model()->setCurrent("view", messages);
        QCOMPARE(pane.model()->rowCount(), 1001);
        QVERIFY(messageText(pane).endsWith("And 99000 more like that."));
        pane.model()->setCurrent("view", {});
        QVERIFY(pane.model()->isPast(1000));
    }

    void placesOfALongText() { QVERIFY(sourcePlaces(QString(":1").repeated(1000000)).isEmpty()); }

    void followsAPlaceByKeyAndClick()
    {
        const Folder dir;
        const QString file = dir.write("a.v", "");
        MessagePane pane;
        pane.show();
        pane.addMessage("nothing", false);
        pane.addMessage("ERROR: " + file + ":7: x", true);
        QStringList asked;
        connect(&pane, &MessagePane::sourceAsked,
                [&asked](const SourcePlace &place) { asked << place.text(); });
        doubleClickMessage(&pane, "nothing");
        doubleClickMessage(&pane, ":7: x");
        QTest::keyClick(pane.findChild<QListView *>(), Qt::Key_Return);
        QCOMPARE(asked, QStringList({file + ":7", file + ":7"}));
    }

    void command_data()
    {
        textColumns("file", "made"); // program|arguments, or the fault
        row("code -g %f:%l", "/a b.v", "code|-g|/a b.v:7");
        row("vi +%l %f", "/x;rm -rf $HOME", "vi|+7|/x;rm -rf $HOME");
        row("\"/my tools/ed\" --at=%l%% \"%f\"", "/%l%f", "/my tools/ed|--at=7%|/%l%f");
        row("ed %f", "--help", "ed|" + QDir::currentPath() + "/--help");
        row("", "/a", "The command begins with the name of a program.");
        row("%f", "/a", "The command begins with the name of a program.");
        row("ed %l", "/a", "The command does not say where the file name goes: %f is missing.");
        const QString shell = "The command must not use a shell, which could take a file name for a command.";
        row("sh -c \"vi %f\"", "/a", shell);
        row("env /bin/bash -c %f", "/a", shell);
        const QString script =
            "%f must not stand inside of other commands, which could take a file name for one.";
        row("vim -c \"edit %f\"", "/a|!reboot", script);
        row("emacsclient --eval (find-file'%f')", "/a", script);
    }
    void command()
    {
        QFETCH(QString, file);
        const SourceCommand command = sourceCommand(QTest::currentDataTag(), {file, 7});
        QTEST(command.fault.isEmpty() ? command.program + '|' + command.arguments.join('|') : command.fault,
              "made");
    }

    void modulesOfAFile_data()
    {
        textColumns("file", "modules");
        row("// module no;\nmodule one(input a); two t(); endmodule\nmodule automatic two; endmodule", "a.v",
            "one two");
        row("entity e is end;\n-- entity no is\narchitecture a of e is begin end;", "a.vhd", "e");
        row("package p; endpackage", "a.sv", "");
        row("module one; endmodule", "a.zub", "");
    }
    void modulesOfAFile()
    {
        QFETCH(QString, file);
        const Folder dir;
        const QString path = dir.write(file, QTest::currentDataTag());
        QTEST(modulesOfFile(path, TE::fileTypeFromName(path)).join(' '), "modules");
    }
};

QTEST_MAIN(MessagesTest)
#include "tst_messages.moc"
