#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include "tests/support/messagelist.h"
#include "tests/support/tablerow.h"
#include "tests/workbench/editorwindow.h"
#include "workbench/projectbanner.h"

const char changedText[] = "The file '%1' changed on disk since it was read or saved here.\n"
                           "Overwrite it, or reload it and lose what was edited here?";
const char linkedText[] =
    "The file '%1' can not be replaced in one step without a loss: it has 2 names (hard links). "
    "It is written in place, and a backup is kept until that has ended.";

// The real editor in the real window, while somebody else works on the same files.
class SavingTest : public EditorWindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        std::signal(SIGXFSZ, SIG_IGN);
        EditorWindowTest::initTestCase();
    }

    void init()
    {
        m_user.beginAnew();
        makeProject();
        m_other = contents(writeConfig(JEX::LiteMode, "a.zub", 2));
        m_path = writeConfig(JEX::LiteMode, "a.zub");
        m_loaded = contents(m_path);
        m_projectPath = m_dir->path("p.jexprj");
        showWindow();
    }
    void cleanup()
    {
        EditorWindowTest::cleanup();
        QVERIFY(m_user.done());
    }

    void saveOfAChangedFile_data()
    {
        // What is done to the file before it is saved, what the user presses; then the file, whether there is
        // still something to be saved, and what was asked.
        textColumns("pressed", "file", "modified", "asked");
        const QString changed = QString(changedText) + " | Cancel* Overwrite Reload";
        row("nothing", "", "edited", "", "");
        row("touched", "", "edited", "", "");
        row("changed", "Overwrite", "edited", "", changed);
        row("changed ", "Cancel", "other", "modified", changed);
        row("changed  ", "Reload", "other", "modified", changed); // the editor keeps its mark
        row("removed", "", "edited", "", "");
        row("linked", "Write in Place", "edited", "", QString(linkedText) + " | Cancel* Write in Place");
        row("linked ", "Cancel", "loaded", "modified", QString(linkedText) + " | Cancel* Write in Place");
    }
    void saveOfAChangedFile()
    {
        auto [pressed, asked] = textCells("pressed", "asked");
        openAndDisturb();
        if (!pressed.isEmpty())
            m_user.then(pressing(pressed));
        save()->trigger();
        QTEST(fileState(), "file");
        QTEST(QString(view()->editedFile().isModified ? "modified" : ""), "modified");
        QCOMPARE(m_user.seen.join('\n'),
                 asked.isEmpty() ? QString() : "question | Save | " + asked.replace("%1", m_path));
        // Once it is saved there is nothing to ask any more, not even about the second name.
        if (view()->editedFile().isModified)
            return discard();
        edit(view());
        save()->trigger();
        QVERIFY(!view()->editedFile().isModified);
        QCOMPARE(m_user.seen.size(), asked.isEmpty() ? 0 : 1);
        QCOMPARE(int(linkCount()), asked.contains("names") ? 2 : 1);
    }

    void reloadShowsTheFile()
    {
        openAndEdit();
        disturb("changed");
        m_user.then(pressing("Reload"));
        save()->trigger();
        QCOMPARE(view()->editedFile().mark.isOutdated(m_path), false);
        QCOMPARE(view()->findChild<QStackedWidget *>("stackedWidget")->count(), 2);
        // A file that is none any more leaves the editor as it is.
        m_dir->write("a.zub", "<html/>");
        m_user.then(pressing("Reload"));
        m_user.press(QMessageBox::Ok);
        save()->trigger();
        QCOMPARE(m_user.seen.last(), "critical | Error | " + m_path +
                                         " could not be read again. The editor keeps what it has. | OK");
        QCOMPARE(view()->findChild<QStackedWidget *>("stackedWidget")->count(), 2);
        discard();
    }

    void closing_data()
    {
        textColumns("pressed", "file", "open");
        row("changed", "Overwrite", "edited", "");
        row("changed ", "Discard", "other", "");
        row("changed  ", "Cancel", "other", "open");
        row("linked", "Discard", "loaded", "");
    }
    void closing()
    {
        QFETCH(QString, pressed);
        openAndDisturb();
        m_user.then(pressing(pressed));
        Core::ViewManager::instance()->closeView(view());
        QCOMPARE(m_user.seen.size(), 1); // the editor does not ask as well
        QTEST(fileState(), "file");
        QTEST(QString(view() ? "open" : ""), "open");
        if (view())
            discard();
    }

    // In the editor's box and in the pane.
    void saysWhyASaveFailed()
    {
        openAndEdit();
        rlimit before;
        QCOMPARE(getrlimit(RLIMIT_FSIZE, &before), 0);
        rlimit none = before;
        none.rlim_cur = 0;
        m_user.press(QMessageBox::Ok);
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &none), 0);
        save()->trigger();
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &before), 0);
        const QString reason = "Can not save to " + m_path + ": writing failed (File too large).";
        QCOMPARE(m_user.seen.join('\n'),
                 "critical | Error | Can not save to " + m_path + " | OK* Show Details... | " + reason);
        QVERIFY2(pane().contains(reason), qPrintable(pane()));
        QVERIFY(view()->editedFile().isModified);
        save()->trigger(); // and the next one asks nothing: nobody else changed the file
        QCOMPARE(fileState(), QString("edited"));
        const auto *messages = m_window->findChild<Workbench::MessagePane *>();
        QCOMPARE(messageRow(messages, reason).data(Qt::AccessibleTextRole).toString(),
                 "Error, past: " + reason);
    }

    void oneFileOneEditor()
    {
        QVERIFY(QFile::link(m_path, m_dir->path("link.zub")));
        QCOMPARE(::link(qPrintable(m_path), qPrintable(m_dir->path("second.zub"))), 0);
        for (const char *name : {"a.zub", "link.zub", "second.zub"})
            QVERIFY(m_workspace->openFile(m_dir->path(name)));
        QCOMPARE(Core::ViewManager::instance()->views().size(), 1);
    }

    void filesThatAreNoConfigurations_data()
    {
        textColumns("box", "pane");
        row("rm a.zub; mkfifo a.zub", "Can not open %1: it is a named pipe, not a regular file.",
            "Can not open %1: it is a named pipe, not a regular file.");
        row("rm a.zub; ln -s a.zub a.zub", "Can not open %1: it is a link that leads to itself.",
            "Can not open %1: it is a link that leads to itself.");
        row("truncate -s 65M a.zub", "Can not open %1:\nInvalid JEX file.",
            "The file \"%1\" cannot be read: it is larger than 64 MiB.");
    }
    void filesThatAreNoConfigurations()
    {
        auto [box, pane] = textCells("box", "pane");
        QCOMPARE(
            QProcess::execute("sh", {"-c", "cd \"$0\"; " + QString(QTest::currentDataTag()), m_dir->path()}),
            0);
        m_user.press(QMessageBox::Ok);
        QVERIFY(!m_workspace->openFile(m_path));
        QCOMPARE(m_user.seen.join('\n'), "critical | Error | " + box.replace("%1", m_path) + " | OK");
        QVERIFY2(this->pane().contains(pane.replace("%1", m_path)), qPrintable(this->pane()));
    }

    void backupIsOffered_data()
    {
        textColumns("pressed", "file", "backup");
        row("a.zub", "Restore", "loaded", "");
        row("a.zub ", "Discard the Backup", "damaged", "");
        row("a.zub  ", "Cancel", "damaged", "kept");
        row("p.jexprj", "Restore", "loaded", "");
    }
    void backupIsOffered()
    {
        QFETCH(QString, pressed);
        const QString name = QString(QTest::currentDataTag()).trimmed();
        const QByteArray whole = m_dir->read(name);
        const QString backup = m_dir->write('.' + name + ".jex-backup", whole);
        m_dir->write(name, whole.left(whole.size() / 2));
        m_user.then(pressing(pressed));
        if (pressed == "Discard the Backup")
            m_user.press(QMessageBox::Ok); // of the editor: the file is damaged
        QCOMPARE(m_workspace->openFile(m_dir->path(name)), pressed == "Restore");
        QVERIFY2(
            m_user.seen.first().contains("The last save of the file '" + m_dir->path(name) + "' did not end"),
            qPrintable(m_user.seen.first()));
        QTEST(QString(m_dir->read(name) == whole ? "loaded" : "damaged"), "file");
        QTEST(QString(QFile::exists(backup) ? "kept" : ""), "backup");
    }

    void projectChangesOnDisk()
    {
        QVERIFY(m_workspace->openProject(m_projectPath));
        auto *banner = m_window->findChild<Workbench::ProjectBanner *>();
        QVERIFY(!banner->isVisible());
        m_workspace->project()->setOption("Defines", "OURS");
        QVERIFY(m_workspace->saveProject());
        QTest::qWait(700);
        QVERIFY(!banner->isVisible()); // that was us

        // The file that is replaced may live on with whoever has it open; what comes next is seen all the
        // same.
        QFile held(m_projectPath);
        QVERIFY(held.open(QIODevice::ReadOnly));
        m_dir->write("new", project("theirs"));
        QCOMPARE(rename(qPrintable(m_dir->path("new")), qPrintable(m_projectPath)), 0);
        QTRY_VERIFY(banner->isVisible());
        QCOMPARE(texts(banner), "The project '" + m_projectPath +
                                    "' changed on disk.\nDo you want to reload it? | Reload | Keep It");
        shownButton(banner, "Reload")->click();
        QVERIFY(!banner->isVisible());
        QCOMPARE(m_workspace->project()->data().topModule, QString("theirs"));
        QVERIFY(!m_workspace->project()->isModified());

        m_dir->write("p.jexprj", project("again"));
        QTRY_VERIFY(banner->isVisible());
        shownButton(banner, "Keep It")->click();
        QVERIFY(!banner->isVisible());
        m_workspace->project()->setOption("TopModule", "ours");
        m_user.then(pressing("Cancel"));
        QVERIFY(!m_workspace->saveProject());
        m_user.then(pressing("Overwrite"));
        QVERIFY(m_workspace->saveProject());
        QVERIFY(m_dir->read("p.jexprj").contains("ours"));
        QCOMPARE(m_user.seen.last(), "question | Save | " + QString(changedText).arg(m_projectPath) +
                                         " | Cancel* Overwrite Reload");

        QVERIFY(QFile::remove(m_projectPath));
        QTRY_VERIFY(banner->isVisible());
        QCOMPARE(texts(banner),
                 "The project '" + m_projectPath +
                     "' has been removed on disk.\nDo you still want to keep it? | Keep It | Close");
        shownButton(banner, "Keep It")->click();
        QVERIFY(!banner->isVisible());
        QVERIFY(m_workspace->project()->isModified());
        QVERIFY(m_workspace->saveProject());
        QVERIFY(QFile::exists(m_projectPath));
    }

private:
    static void edit(Core::IView *view)
    {
        auto *amount = view->findChild<QComboBox *>("comboCapAmount");
        amount->setCurrentIndex(amount->currentIndex() == 0 ? 1 : amount->currentIndex() - 1);
        QVERIFY(view->editedFile().isModified);
    }
    void openAndEdit()
    {
        QVERIFY(m_workspace->openFile(m_path));
        edit(view());
    }
    void openAndDisturb()
    {
        openAndEdit();
        disturb(QString(QTest::currentDataTag()).trimmed());
    }
    void disturb(const QString &how)
    {
        if (how == "changed")
            m_dir->write("a.zub", m_other);
        else if (how == "touched")
            m_dir->write("a.zub", m_loaded);
        else if (how == "removed")
            QVERIFY(QFile::remove(m_path));
        else if (how == "linked")
            QCOMPARE(::link(qPrintable(m_path), qPrintable(m_dir->path("second"))), 0);
    }
    QString fileState() const
    {
        const QByteArray now = contents(m_path);
        const auto rest = [](const QByteArray &text) {
            return QString(text).remove(QRegularExpression("captureAmount=\"\\d+\""));
        };
        return now == m_other                ? "other"
               : now == m_loaded             ? "loaded"
               : rest(now) == rest(m_loaded) ? "edited"
                                             : "damaged";
    }
    nlink_t linkCount() const
    {
        struct stat info = {};
        ::stat(QFile::encodeName(m_path).constData(), &info);
        return info.st_nlink;
    }
    void discard()
    {
        m_user.then(pressing("Discard"));
        Core::ViewManager::instance()->closeView(view());
        QVERIFY(!view());
    }
    static QString texts(const QWidget *banner)
    {
        QStringList texts;
        for (const QLabel *label : banner->findChildren<QLabel *>())
            texts << label->text();
        texts.removeAll("");
        for (const QAbstractButton *button : banner->findChildren<QAbstractButton *>()) {
            if (button->isVisible())
                texts << button->text().remove('&');
        }
        return texts.join(" | ");
    }
    QString m_path;
    QString m_projectPath;
    QByteArray m_loaded;
    QByteArray m_other;
    ModalDriver m_user;
};

QTEST_MAIN(SavingTest)
#include "tst_saving.moc"
