#include "host/viewmanager.h"
#include "plugin/jexinserterview.h"
#include "plugin/jexviewmanager.h"
#include "tests/support/modaldriver.h"
#include "tests/support/workspace.h"
#include "workbench/mainwindow.h"
#include "workbench/messagemodel.h"
#include "workbench/messagepane.h"
#include "workbench/recovery.h"
#include "workbench/reopenbanner.h"
#include "workbench/translations.h"
#include "workbench/workspace.h"

namespace {

// Presses the button of that text, whose mnemonic does not count, and notes what else was shown.
ModalDriver::Step pressing(const QString &text, QString *list = nullptr)
{
    return [text, list](QDialog *dialog) {
        if (const QTreeWidget *tree = list ? dialog->findChild<QTreeWidget *>() : nullptr) {
            for (int row = 0; row < tree->topLevelItemCount(); ++row)
                *list += tree->topLevelItem(row)->text(0) + ": " + tree->topLevelItem(row)->text(3) + '|';
        }
        for (QAbstractButton *button : dialog->findChildren<QAbstractButton *>()) {
            if (button->text().remove('&') == text)
                return button->click();
        }
        dialog->reject();
    };
}

} // namespace

// What is edited and not saved, over the ends of workbenches, designs and editors.
class RecoveryTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { RTLJEX::JexViewManager::instance()->initialize(); }
    void cleanupTestCase() { RTLJEX::JexViewManager::instance()->deinit(); }

    void init()
    {
        m_user.reset(new ModalDriver);
        m_dir.reset(new Folder);
        m_dir->write("top.v", counterDesign);
        {
            const Workspace work;
            m_path = m_dir->write("a.zub", contents(work.writeLite("a.zub", 1)));
        }
        m_dir->write("p.jexprj", R"({"version": 1, "files": [{"path": "top.v"}], "topModule": "top"})");
        m_folder = m_dir->path("kept");
        start();
        QVERIFY(m_window->workspace()->openProject(m_dir->path("p.jexprj")));
        QVERIFY(m_window->workspace()->openFile(m_path));
    }
    void cleanup()
    {
        m_window.reset();
        QVERIFY(m_user->done());
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
        setFalling(true);
        m_window->recovery()->keepNow();
        QVERIFY(m_window->findChild<QAction *>("closeAsDraft")->isEnabled());
        QVERIFY(view()->isVisible());
        QVERIFY(!contents(m_path).contains("falling")); // the file itself is left alone
        save();
        m_window->recovery()->keepNow();
        QCOMPARE(kept(), 0);
        setFalling(false);
        m_window->recovery()->keepNow();
        QCOMPARE(kept(), 1);
        m_user->then(pressing("Discard"));
        QVERIFY(Core::ViewManager::instance()->closeView(view()));
        QCOMPARE(kept(), 0);
    }

    // Nobody takes what a living workbench keeps; of a dead one it is offered, with what differs in words.
    void afterACrash()
    {
        setFalling(true);
        m_window->recovery()->keepNow();
        m_window->recovery()->offer();
        Workbench::RecoveryStore other(m_folder);
        QCOMPARE(other.left().size(), 0);
        die();
        start();
        QString list;
        m_user->then(pressing("Decide Later", &list));
        m_window->recovery()->offer();
        QCOMPARE(list, QString("a.zub: Core 0: edge changed from rising to falling|"));
        QVERIFY(!view());
        QCOMPARE(Workbench::RecoveryStore(m_folder).left().size(), 0); // this one has taken it
        QLocale::setDefault(QLocale("de_DE"));
        auto german = std::make_unique<Workbench::Translations>();
        list.clear();
        m_user->then(pressing("Später entscheiden", &list));
        m_window->recovery()->offer();
        german.reset();
        QLocale::setDefault(QLocale::c());
        QCOMPARE(list, QString("a.zub: Core 0: Flanke wurde von steigend in fallend geändert|"));
        m_user->then(pressing("Recover"));
        m_window->recovery()->offer();
        QVERIFY(isFalling() && view()->editedFile().isModified);
        QCOMPARE(kept(), 1);
        save();
        QVERIFY(contents(m_path).contains("edge=\"falling\""));
        m_window->recovery()->offer(); // nothing is left
    }

    // It would come back in the file that the user has left as it was.
    void afterSavingAs()
    {
        const QByteArray before = contents(m_path);
        setFalling(true);
        m_window->recovery()->keepNow();
        m_user->then([this](QDialog *dialog) {
            static_cast<QFileDialog *>(dialog)->selectFile(m_dir->path("b.zub"));
            dialog->accept();
        });
        m_window->findChild<QAction *>("saveAs")->trigger();
        QCOMPARE(view()->editedFile().path, m_dir->path("b.zub"));
        QCOMPARE(kept(), 0);
        setFalling(false);
        m_window->recovery()->keepNow();
        QCOMPARE(kept(), 1);
        die();
        start();
        QString list;
        m_user->then(pressing("Recover", &list));
        m_window->recovery()->offer();
        QCOMPARE(list, QString("b.zub: Core 0: edge changed from falling to rising|"));
        QCOMPARE(view()->editedFile().path, m_dir->path("b.zub"));
        QVERIFY(!isFalling());
        QCOMPARE(contents(m_path), before);
        save();
    }

    void damaged_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<bool>("isOffered");
        const QByteArray head =
            "{\"version\":1,\"file\":\"/nowhere/a.zub\",\"project\":\"\",\"reason\":\"crash\"}\n";
        QTest::newRow("empty") << QByteArray() << false;
        QTest::newRow("no head") << QByteArray("snapshot\n") << false;
        QTest::newRow("another version") << QByteArray(head).replace(":1,", ":2,") << false;
        QTest::newRow("a relative path") << QByteArray(head).replace("/nowhere/", "") << false;
        QTest::newRow("no state") << head << true;
        QTest::newRow("garbage") << head + QByteArray(1000, '\xff') << true;
    }
    void damaged()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(bool, isOffered);
        m_dir->write("kept/session-1-1/a.state", bytes);
        QString list;
        if (isOffered)
            m_user->then(pressing("Recover", &list));
        if (isOffered)
            m_user->then(pressing("OK")); // the file is not there
        m_window->recovery()->offer();
        QCOMPARE(list, QString(isOffered ? "a.zub: The copy is damaged.|" : ""));
        QVERIFY(QFile::exists(m_dir->path("kept/session-1-1/a.state")));
    }

    void draft()
    {
        setFalling(true);
        m_window->findChild<QAction *>("closeAsDraft")->trigger();
        QVERIFY(!view());
        QVERIFY(!contents(m_path).contains("falling"));
        m_user->then(pressing("Not Now"));
        QVERIFY(m_window->workspace()->openFile(m_path));
        QTRY_VERIFY(m_user->done());
        QVERIFY(!isFalling());
        QVERIFY(Core::ViewManager::instance()->closeView(view()));
        m_user->then(pressing("Open the Draft"));
        QVERIFY(m_window->workspace()->openFile(m_path));
        QTRY_VERIFY(m_user->done());
        QVERIFY(isFalling() && view()->editedFile().isModified);
        save();
        QVERIFY(Core::ViewManager::instance()->closeView(view()));
        QVERIFY(m_window->workspace()->openFile(m_path)); // asks nothing any more
        QTest::qWait(50);
    }

    // Whatever dies while it is needed: an editor that nobody closed, the window below its question.
    void deaths()
    {
        setFalling(true);
        m_window->recovery()->keepNow();
        delete view();
        m_window->recovery()->keepNow();
        QVERIFY(!m_window->findChild<QAction *>("closeAsDraft")->isEnabled());
        QCOMPARE(kept(), 1);
        m_dir->write("kept/leaving-session-1-1/lock", ""); // of a workbench that died when it removed it
        m_window.reset();
        QVERIFY(!QFile::exists(m_folder + "/leaving-session-1-1"));
        start();
        m_user->then([this](QDialog *) { m_window.reset(); });
        m_window->recovery()->offer();
        QVERIFY(!m_window);
        QCOMPARE(Workbench::RecoveryStore(m_folder).left().size(), 1);
    }

    // A source that is just being typed: told beforehand, and nothing is lost when the editor has to close.
    void unreadableDesign()
    {
        setFalling(true);
        m_dir->write("top.v", "module top(; endmodule\n");
        QTRY_VERIFY_WITH_TIMEOUT(messages().contains("not readable yet") && messages().contains("top.v:1"),
                                 30000);
        m_user->then([](QDialog *dialog) { dialog->accept(); });
        QTRY_VERIFY(reload());
        reload()->click();
        QTRY_VERIFY_WITH_TIMEOUT(!view(), 30000);
        auto *banner = m_window->findChild<Workbench::ReopenBanner *>();
        auto *open = banner->findChild<QPushButton *>();
        QTRY_VERIFY(banner->isVisible() && !open->isEnabled());
        QCOMPARE(kept(), 1);
        m_dir->write("top.v", counterDesign);
        QTRY_VERIFY_WITH_TIMEOUT(open->isEnabled(), 30000);
        open->click();
        QVERIFY(view() && isFalling() && view()->editedFile().isModified);
        QVERIFY(!banner->isVisible());
        const auto *told = m_window->findChild<Workbench::MessageModel *>();
        for (int row = 0; row < told->rowCount(); ++row)
            QVERIFY2(told->isPast(row) || told->message(row).kind == Workbench::Message::Note,
                     qPrintable(told->line(row)));
    }

    // Of two languages one is read when the other cannot be: what would be missing is told before the reload.
    void halfReadableDesign()
    {
        m_window->workspace()->project()->addFile(
            m_dir->write("c.vhd", "entity c is end;\narchitecture a of c is begin x <= ; end;\n"));
        QTRY_VERIFY_WITH_TIMEOUT(messages().contains("can be read, but: ") && messages().contains("c.vhd:2"),
                                 30000);
        QVERIFY(!messages().contains("not readable"));
    }

    // As a session manager does that lets nobody be asked.
    void asksNobodyAtTheEnd()
    {
        edit();
        m_window->recovery()->keepForNextStart();
        QVERIFY(m_window->close()); // asks nobody: there is none who would answer
        m_window.reset();
        QCOMPARE(kept(), 1);
        m_user->then(pressing("Recover"));
        start();
        m_window->recovery()->offer();
        QVERIFY(view()->editedFile().isModified);
    }

private:
    void start()
    {
        m_window.reset(new Workbench::MainWindow(nullptr));
        m_window->attend(m_folder);
        m_window->show();
    }
    // As if the program had been killed: its lock names a process that is no more.
    void die()
    {
        m_window->recovery()->keepForNextStart();
        m_user->then(pressing("Discard"));
        Core::ViewManager::instance()->closeAllViews();
        m_window.reset();
    }
    Core::IView *view() { return Core::ViewManager::instance()->currentView(); }
    QString messages() { return m_window->findChild<Workbench::MessagePane *>()->toPlainText(); }
    void setFalling(bool on)
    {
        view()->findChild<QRadioButton *>(on ? "radioButtonFalling" : "radioButtonRising")->click();
    }
    bool isFalling() { return view()->findChild<QRadioButton *>("radioButtonFalling")->isChecked(); }
    void edit() { setFalling(!isFalling()); }
    void save() { static_cast<RTLJEX::JexInserterView *>(view())->save(); }
    QPushButton *reload()
    {
        for (QPushButton *button : view()->findChildren<QPushButton *>()) {
            if (button->text() == "Reload" && button->isVisible())
                return button;
        }
        return nullptr;
    }
    // Files of states in the folders of workbenches.
    int kept()
    {
        int count = 0;
        for (const QFileInfo &session : QDir(m_folder).entryInfoList({"session-*"}, QDir::Dirs))
            count += QDir(session.filePath()).entryList({"*.state"}).size();
        return count;
    }

    std::unique_ptr<ModalDriver> m_user;
    std::unique_ptr<Folder> m_dir;
    std::unique_ptr<Workbench::MainWindow> m_window;
    QString m_path;
    QString m_folder;
};

QTEST_MAIN(RecoveryTest)
#include "tst_recovery.moc"
