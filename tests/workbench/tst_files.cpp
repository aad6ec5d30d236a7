#include <sys/stat.h>
#include <unistd.h>

#include "host/ifileeditor.h"
#include "tests/support/drops.h"
#include "tests/support/tablerow.h"
#include "tests/workbench/editorwindow.h"
#include "workbench/devicedialog.h"
#include "workbench/projecttree.h"

// What the File menu does with the real editors, and what is there again at the next start.
class FilesTest : public EditorWindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_user.beginAnew();
        makeProject();
        m_dir->write("rtl/top.v", counterDesign);
        for (const char *name : {"a.zub", "b.zub"})
            writeConfig(JEX::StandardMode, name, 2);
        m_dir->write("p.jexprj", R"({"version": 1, "name": "p", "topModule": "top", "files": [
            {"path": "rtl/top.v"}, {"path": "a.zub"}, {"path": "b.zub"}]})");
        m_settings.reset(new QSettings(m_dir->path("settings"), QSettings::IniFormat));
        start();
    }

    void saveAsMovesTheEditor()
    {
        const QByteArray before = m_dir->read("a.zub");
        m_workspace->openFile(m_dir->path("a.zub"));
        edit();
        m_user.then(choosing(m_dir->path("new.zub")));
        trigger("saveAs");
        QCOMPARE(m_dir->read("a.zub"), before);
        QVERIFY(m_dir->read("new.zub") != before);
        QCOMPARE(view()->editedFile().path, m_dir->path("new.zub"));
        QVERIFY(!view()->editedFile().isModified);
        QVERIFY(m_workspace->project()->data().files.last().path == m_dir->path("new.zub"));
        // The editor listens to the new file and no longer to the old one.
        m_dir->write("a.zub", "");
        QTest::qWait(900);
        QVERIFY(!banner());
        m_dir->write("new.zub", before);
        QTRY_VERIFY(banner());
    }

    void saveAsThatFailsLeavesTheFile_data()
    {
        textColumns("target", "told");
        row("open elsewhere", "b.zub", "b.zub is open in another tab. Close that first.");
        row("no file", "pipe.zub", "it is a named pipe, not a regular file.");
        row("no such folder", "none/c.zub", "Can not save to");
    }
    void saveAsThatFailsLeavesTheFile()
    {
        auto [target, told] = textCells("target", "told");
        const QByteArray before = m_dir->read("b.zub");
        QCOMPARE(mkfifo(m_dir->path("pipe.zub").toLocal8Bit().constData(), 0600), 0);
        m_workspace->openFile(m_dir->path("b.zub"));
        m_workspace->openFile(m_dir->path("a.zub"));
        edit();
        QDir(m_dir->path()).mkdir("none");
        m_user.then([this, path = m_dir->path(target)](QDialog *dialog) {
            qobject_cast<QFileDialog *>(dialog)->selectFile(path);
            QDir(m_dir->path()).rmdir("none"); // while the dialog is open
            QMetaObject::invokeMethod(dialog, "accept");
        });
        if (!target.startsWith("none"))
            m_user.press(QMessageBox::Yes);
        m_user.press(QMessageBox::Ok);
        trigger("saveAs");
        QVERIFY2(m_user.seen.join('\n').contains(told), qPrintable(m_user.seen.join('\n')));
        QCOMPARE(view()->editedFile().path, m_dir->path("a.zub"));
        QVERIFY(view()->editedFile().isModified);
        QCOMPARE(m_dir->read("b.zub"), before);
    }

    // A file with two names would lose one of them.
    void saveAsAsksBeforeALoss()
    {
        QCOMPARE(link(m_dir->path("b.zub").toLocal8Bit().constData(),
                      m_dir->path("c.zub").toLocal8Bit().constData()),
                 0);
        const QByteArray before = m_dir->read("c.zub");
        m_workspace->openFile(m_dir->path("a.zub"));
        edit();
        m_user.then(choosing(m_dir->path("c.zub")));
        m_user.press(QMessageBox::Yes);
        m_user.then(pressing("Cancel"));
        trigger("saveAs");
        QVERIFY2(m_user.seen.last().contains("it has 2 names (hard links)"),
                 qPrintable(m_user.seen.join('\n')));
        QCOMPARE(m_dir->read("c.zub"), before);
        QCOMPARE(view()->editedFile().path, m_dir->path("a.zub"));
    }

    void saveAllAndCloseAll()
    {
        for (const char *name : {"a.zub", "b.zub"}) {
            m_workspace->openFile(m_dir->path(name));
            edit();
        }
        const QByteArray before = m_dir->read("a.zub");
        m_workspace->project()->setOption("Defines", QStringList("X"));
        trigger("saveAll");
        for (const Core::IView *open : Core::ViewManager::instance()->views())
            QVERIFY(!open->editedFile().isModified);
        QVERIFY(m_dir->read("a.zub") != before);
        QVERIFY(m_dir->read("p.jexprj").contains("\"X\""));
        QCOMPARE(view()->editedFile().path, m_dir->path("b.zub"));
        trigger("closeAll");
        QVERIFY(Core::ViewManager::instance()->views().isEmpty());
    }

    // What is shown counts, and nothing of it is written or stored.
    void checkSavesNothing()
    {
        const QByteArray before = m_dir->read("a.zub");
        m_workspace->openFile(m_dir->path("a.zub"));
        trigger("check");
        QVERIFY(said("a.zub: The check found nothing."));
        view()->findChild<QLineEdit *>("editSampleClock")->setText("top/gone");
        m_messages.clear();
        trigger("check");
        QCOMPARE(m_messages, QStringList("a.zub: The check found this, in all: 1"));
        const Core::Finding finding = view()->findings().first();
        QCOMPARE(finding.kind, Core::Finding::Refusal);
        const QString told = finding.text;
        QVERIFY(pane().contains("a.zub: " + told));
        QCOMPARE(m_dir->read("a.zub"), before);
        QVERIFY(view()->editedFile().isModified);
        m_user.press(QMessageBox::Ok); // a save finds the same
        m_workspace->saveView(view());
        QVERIFY(told.size() > 10);
        QVERIFY2(m_user.seen.first().contains(told), qPrintable(m_user.seen.first()));
    }

    void reloadAsksForEdits()
    {
        m_workspace->openFile(m_dir->path("a.zub"));
        edit();
        m_user.then(pressing("Cancel"));
        trigger("reload");
        QCOMPARE(view()->findChild<QLineEdit *>("editSampleClock")->text(), QString("top/d[0]"));
        m_user.then(pressing("Reload"));
        trigger("reload");
        QCOMPARE(view()->findChild<QLineEdit *>("editSampleClock")->text(), QString("top/clk"));
    }

    void sessionComesBack()
    {
        for (const char *name : {"b.zub", "a.zub"})
            m_workspace->openFile(m_dir->path(name));
        view()->findChild<QStackedWidget *>("stackedWidget")->setCurrentIndex(0);
        dynamic_cast<Core::IFileEditor *>(view())->showPlace("core 1 tab 1");
        m_workspace->openFile(m_dir->path("b.zub"));
        QVERIFY(m_window->close());
        start();
        QCOMPARE(Core::ViewManager::instance()->views().size(), 2);
        QCOMPARE(view()->editedFile().path, m_dir->path("b.zub"));
        const auto *other = dynamic_cast<Core::IFileEditor *>(Core::ViewManager::instance()->views().last());
        QCOMPARE(other->shownPlace(), QString("core 1 tab 1"));
        // What is gone is left out without a word.
        QVERIFY(m_window->close());
        QFile::remove(m_dir->path("b.zub"));
        start();
        QCOMPARE(Core::ViewManager::instance()->views().size(), 1);
        QCOMPARE(m_user.seen, QStringList());
    }

    void placesOfStrangersAreLeftAlone()
    {
        m_workspace->openFile(m_dir->path("a.zub"));
        auto *editor = dynamic_cast<Core::IFileEditor *>(view());
        editor->showPlace("core 1 tab 1");
        for (const char *place :
             {"", "core 7 tab 0", "core 99999999999 tab 1", "core -1 tab 0", "core 1 tab 2"})
            editor->showPlace(place);
        QCOMPARE(editor->shownPlace(), QString("core 1 tab 1"));
    }

    void treeFollowsTheTabAndTheDisk()
    {
        auto *tree = m_window->findChild<Workbench::ProjectTree *>();
        m_workspace->openFile(m_dir->path("a.zub"));
        QCOMPARE(tree->currentItem()->text(0), QString("a.zub"));
        m_workspace->openFile(m_dir->path("b.zub"));
        QCOMPARE(tree->currentItem()->text(0), QString("b.zub"));
        QTreeWidgetItem *source = tree->findItems("top.v", Qt::MatchRecursive).value(0);
        QVERIFY(source);
        QCOMPARE(source->text(1), QString("rtl"));
        Q_EMIT tree->fileActivated(m_dir->path("rtl/top.v")); // is shown in a tab as well
        QCOMPARE(tree->selectedFiles(), QStringList(m_dir->path("rtl/top.v")));
        QTest::keyPress(m_window.get(), Qt::Key_Control, Qt::ControlModifier); // and held, as for Ctrl+W
        view()->parentWidget()->close();
        QTest::keyRelease(m_window.get(), Qt::Key_Control);
        QCOMPARE(tree->selectedFiles(), QStringList(m_dir->path("b.zub")));
        QFile::remove(m_dir->path("rtl/top.v"));
        QEvent activation(QEvent::WindowActivate);
        QCoreApplication::sendEvent(tree, &activation);
        QCOMPARE(tree->findItems("top.v (missing)", Qt::MatchRecursive).size(), 1);
        QCOMPARE(tree->currentItem()->text(0), QString("b.zub"));
    }

    void droppedFiles()
    {
        m_dir->write("more.v", "module more; endmodule");
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(m_dir->path("more.v")), QUrl::fromLocalFile(m_dir->path("a.zub")),
                      QUrl("http://example.org/b.zub")});
        QCOMPARE(dropOn(m_window.get(), data), Qt::CopyAction);
        QTRY_COMPARE(Core::ViewManager::instance()->views().size(), 1);
        QCOMPARE(m_workspace->project()->data().files.last().path, m_dir->path("more.v"));
        // Lists take drops of their own, which files are not.
        auto *list = m_window->findChild<QTreeWidget *>("treeWidgetCapSigs");
        data.setUrls({QUrl::fromLocalFile(m_dir->write("even.v", "module even; endmodule"))});
        dropOn(list->viewport(), data);
        QTRY_COMPARE(m_workspace->project()->data().files.last().path, m_dir->path("even.v"));
        QCOMPARE(dropOn(m_window.get(), "a.zub"), Qt::IgnoreAction);
    }

    void windowsKeepTheirSize()
    {
        // The main window comes back to where as much of it can be seen as there is room for.
        const QRect room = m_window->screen()->availableGeometry();
        m_window->setGeometry(QRect(room.center(), m_window->size()));
        m_window->close();
        start();
        const QPoint corner = m_window->geometry().topLeft();
        QVERIFY(corner.x() < room.center().x());
        QVERIFY(room.contains(corner));
        const DEV::DeviceArg none;
        {
            Workbench::DeviceDialog dialog(none, m_window.get());
            dialog.show();
            dialog.resize(611, 333);
            dialog.findChild<QTreeWidget *>()->setColumnWidth(1, 171);
        }
        Workbench::DeviceDialog again(none, m_window.get());
        QCOMPARE(again.size(), QSize(611, 333));
        QCOMPARE(again.findChild<QTreeWidget *>()->columnWidth(1), 171);
    }

private:
    void start()
    {
        showWindow(m_settings.get());
        m_messages.clear();
        connect(m_workspace, &Workbench::Workspace::message, this,
                [this](const QString &text) { m_messages << text; });
        QVERIFY(m_workspace->openProject(m_dir->path("p.jexprj")));
    }

    static QWidget *banner() { return view()->findChild<QWidget *>("RTLJEX__ReloadBanner"); }

    void edit()
    {
        QLineEdit *clock = view()->findChild<QLineEdit *>("editSampleClock");
        clock->setText(clock->text() == "top/clk" ? "top/d[0]" : "top/clk");
        QVERIFY(view()->editedFile().isModified);
    }

    void trigger(const char *name)
    {
        auto *action = m_window->menuBar()->findChild<QAction *>(name);
        QVERIFY2(action, name);
        QVERIFY2(action->isEnabled(), name);
        action->trigger();
    }

    bool said(const QString &text) const { return !m_messages.filter(text).isEmpty(); }

    QStringList m_messages;
    std::unique_ptr<QSettings> m_settings;
    ModalDriver m_user;
};

QTEST_MAIN(FilesTest)
#include "tst_files.moc"
