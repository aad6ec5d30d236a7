#include "host/translation.h"
#include "tests/support/tablerow.h"
#include "tests/workbench/editorwindow.h"
#include "workbench/messagemodel.h"
#include "workbench/recovery.h"
#include "workbench/reopenbanner.h"
#include "workbench/translations.h"

// What is edited and not saved, over the ends of workbenches, designs and editors.
class RecoveryTest : public EditorWindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_user.beginAnew();
        makeProject();
        m_path = writeConfig(JEX::LiteMode, "a.zub");
        m_folder = m_dir->path("kept");
        start();
        QVERIFY(m_workspace->openProject(m_dir->path("p.jexprj")));
        QVERIFY(m_workspace->openFile(m_path));
    }
    void cleanup()
    {
        EditorWindowTest::cleanup();
        QVERIFY(m_user.done());
    }

    // Some seconds after the first edit of a burst, however long that goes on; gone after a save and a close.
    void keptAndDropped()
    {
        QCOMPARE(kept(), 0);
        edit();
        for (int i = 0; i < 40 && !kept(); ++i) {
            QTest::qWait(100);
            edit();
        }
        QCOMPARE(kept(), 1);
        keep(true);
        QVERIFY(m_window->findChild<QAction *>("closeAsDraft")->isEnabled());
        QVERIFY(view()->isVisible());
        QVERIFY(!contents(m_path).contains("falling")); // the file itself is left alone
        save()->trigger();
        m_window->recovery()->keepNow();
        QCOMPARE(kept(), 0);
        keep(false);
        QCOMPARE(kept(), 1);
        m_user.then(pressing("Discard"));
        QVERIFY(Core::ViewManager::instance()->closeView(view()));
        QCOMPARE(kept(), 0);
    }

    // Nobody takes what a living workbench keeps; of a dead one it is offered, with what differs in words.
    void afterACrash()
    {
        keep(true);
        m_window->recovery()->offer();
        Workbench::RecoveryStore other(m_folder);
        QCOMPARE(other.left().size(), 0);
        dieAndStart();
        QCOMPARE(offered({"Decide Later"}), QString("a.zub: Core 0: edge changed from rising to falling|"));
        QVERIFY(!view());
        QCOMPARE(Workbench::RecoveryStore(m_folder).left().size(), 0); // this one has taken it
        QLocale::setDefault(QLocale("de_DE"));
        auto german = std::make_unique<Workbench::Translations>();
        auto plugin = QUtil::installTranslation("jexins", ":/jexins/texts"); // as the plug-in does
        const QString list = offered({"Später entscheiden"});
        german.reset();
        plugin.reset();
        QLocale::setDefault(QLocale::c());
        QCOMPARE(list, QString("a.zub: Core 0: Flanke wurde von steigend in fallend geändert|"));
        offered({"Recover"});
        QVERIFY(isFalling());
        QVERIFY(view()->editedFile().isModified);
        QCOMPARE(kept(), 1);
        save()->trigger();
        QVERIFY(contents(m_path).contains("edge=\"falling\""));
        m_window->recovery()->offer(); // nothing is left
    }

    // It would come back in the file that the user has left as it was.
    void afterSavingAs()
    {
        const QByteArray before = contents(m_path);
        keep(true);
        m_user.then(choosing(m_dir->path("b.zub")));
        action("Save As...")->trigger();
        QCOMPARE(view()->editedFile().path, m_dir->path("b.zub"));
        QCOMPARE(kept(), 0);
        keep(false);
        QCOMPARE(kept(), 1);
        dieAndStart();
        QCOMPARE(offered({"Recover"}), QString("b.zub: Core 0: edge changed from falling to rising|"));
        QCOMPARE(view()->editedFile().path, m_dir->path("b.zub"));
        QVERIFY(!isFalling());
        QCOMPARE(contents(m_path), before);
        save()->trigger();
    }

    void damaged_data()
    {
        textColumns("bytes", "offered");
        const QString head = R"({"version":1,"file":"/nowhere/a.zub","project":"","reason":"crash"})";
        const QString isDamaged = "a.zub: The copy is damaged.|";
        row("empty", "", "");
        row("no head", "snapshot\n", "");
        row("another version", QString(head).replace(":1,", ":2,") + '\n', "");
        row("a relative path", QString(head).remove("/nowhere/") + '\n', "");
        row("no state", head + '\n', isDamaged);
        row("garbage", head + '\n' + QString(1000, QChar(0xff)), isDamaged);
    }
    void damaged()
    {
        auto [bytes, list] = textCells("bytes", "offered");
        m_dir->write("kept/session-1-1/a.state", bytes.toLatin1());
        const QStringList buttons{"Recover", "OK"}; // the file is not there
        QCOMPARE(offered(list.isEmpty() ? QStringList() : buttons), list);
        QVERIFY(QFile::exists(m_dir->path("kept/session-1-1/a.state")));
    }

    void draft()
    {
        setFalling(true);
        m_window->findChild<QAction *>("closeAsDraft")->trigger();
        QVERIFY(!view());
        QVERIFY(!contents(m_path).contains("falling"));
        m_user.then(pressing("Not Now"));
        QVERIFY(m_workspace->openFile(m_path));
        QTRY_VERIFY(m_user.done());
        QVERIFY(!isFalling());
        QVERIFY(Core::ViewManager::instance()->closeView(view()));
        m_user.then(pressing("Open the Draft"));
        QVERIFY(m_workspace->openFile(m_path));
        QTRY_VERIFY(m_user.done());
        QVERIFY(isFalling());
        QVERIFY(view()->editedFile().isModified);
        save()->trigger();
        QVERIFY(Core::ViewManager::instance()->closeView(view()));
        QVERIFY(m_workspace->openFile(m_path)); // asks nothing any more
        QTest::qWait(50);
    }

    // Whatever dies while it is needed: an editor that nobody closed, the window below its question.
    void deaths()
    {
        keep(true);
        delete view();
        m_window->recovery()->keepNow();
        QVERIFY(!m_window->findChild<QAction *>("closeAsDraft")->isEnabled());
        QCOMPARE(kept(), 1);
        m_dir->write("kept/leaving-session-1-1/lock", ""); // of a workbench that died when it removed it
        m_window.reset();
        QVERIFY(!QFile::exists(m_folder + "/leaving-session-1-1"));
        start();
        m_user.then([this](QDialog *) { m_window.reset(); });
        m_window->recovery()->offer();
        QVERIFY(!m_window);
        QCOMPARE(Workbench::RecoveryStore(m_folder).left().size(), 1);
    }

    // A source that is just being typed: told beforehand, and nothing is lost when the editor has to close.
    void unreadableDesign()
    {
        setFalling(true);
        m_dir->write("top.v", "module top(; endmodule\n");
        QTRY_VERIFY_WITH_TIMEOUT(pane().contains("not readable yet"), 30000);
        QTRY_VERIFY2(pane().contains("top.v:1"), qPrintable(pane()));
        m_user.then([](QDialog *dialog) { dialog->accept(); });
        QTRY_VERIFY(shownButton(view(), "Reload"));
        shownButton(view(), "Reload")->click();
        QTRY_VERIFY_WITH_TIMEOUT(!view(), 30000);
        auto *banner = m_window->findChild<Workbench::ReopenBanner *>();
        auto *open = banner->findChild<QPushButton *>();
        QTRY_VERIFY(banner->isVisible());
        QTRY_VERIFY(!open->isEnabled());
        QCOMPARE(kept(), 1);
        m_dir->write("top.v", counterDesign);
        QTRY_VERIFY_WITH_TIMEOUT(open->isEnabled(), 30000);
        open->click();
        QVERIFY(view());
        QVERIFY(isFalling());
        QVERIFY(view()->editedFile().isModified);
        QVERIFY(!banner->isVisible());
        const auto *told = m_window->findChild<Workbench::MessageModel *>();
        for (int row = 0; row < told->rowCount(); ++row)
            QVERIFY2(told->isPast(row) || told->message(row).kind == Workbench::Message::Note,
                     qPrintable(told->line(row)));
    }

    // Of two languages one is read when the other cannot be: what would be missing is told before the reload.
    void halfReadableDesign()
    {
        m_workspace->project()->addFile(
            m_dir->write("c.vhd", "entity c is end;\narchitecture a of c is begin x <= ; end;\n"));
        QTRY_VERIFY_WITH_TIMEOUT(pane().contains("can be read, but: "), 30000);
        QTRY_VERIFY2(pane().contains("c.vhd:2"), qPrintable(pane()));
        QVERIFY(!pane().contains("not readable"));
    }

    // As a session manager does that lets nobody be asked.
    void asksNobodyAtTheEnd()
    {
        edit();
        m_window->recovery()->keepForNextStart();
        QVERIFY(m_window->close()); // asks nobody: there is none who would answer
        m_window.reset();
        QCOMPARE(kept(), 1);
        m_user.then(pressing("Recover"));
        start();
        m_window->recovery()->offer();
        QVERIFY(view()->editedFile().isModified);
    }

private:
    void start()
    {
        showWindow();
        m_window->attend(m_folder);
    }
    // What is offered to a user who presses these buttons, one in each dialog.
    QString offered(const QStringList &buttons)
    {
        m_list.clear();
        for (const QString &button : buttons) {
            m_user.then([this, button](QDialog *dialog) {
                const auto *tree = dialog->findChild<QTreeWidget *>();
                for (int row = 0; tree && row < tree->topLevelItemCount(); ++row)
                    m_list +=
                        tree->topLevelItem(row)->text(0) + ": " + tree->topLevelItem(row)->text(3) + '|';
                pressing(button)(dialog);
            });
        }
        m_window->recovery()->offer();
        return m_list;
    }
    // As if the program had been killed: its lock names a process that is no more.
    void dieAndStart()
    {
        m_window->recovery()->keepForNextStart();
        m_user.then(pressing("Discard"));
        Core::ViewManager::instance()->closeAllViews();
        m_window.reset();
        start();
    }
    void setFalling(bool on)
    {
        view()->findChild<QRadioButton *>(on ? "radioButtonFalling" : "radioButtonRising")->click();
    }
    bool isFalling() { return view()->findChild<QRadioButton *>("radioButtonFalling")->isChecked(); }
    void keep(bool isFalling)
    {
        setFalling(isFalling);
        m_window->recovery()->keepNow();
    }
    void edit() { setFalling(!isFalling()); }

    // Files of states in the folders of workbenches.
    int kept()
    {
        int count = 0;
        for (const QFileInfo &session : QDir(m_folder).entryInfoList({"session-*"}, QDir::Dirs))
            count += QDir(session.filePath()).entryList({"*.state"}).size();
        return count;
    }

    ModalDriver m_user;
    QString m_list;
    QString m_path;
    QString m_folder;
};

QTEST_MAIN(RecoveryTest)
#include "tst_recovery.moc"
