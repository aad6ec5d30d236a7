#include "host/editorregistry.h"
#include "host/filewizard.h"
#include "host/iview.h"
#include "host/project.h"
#include "host/viewmanager.h"
#include "tests/support/files.h"
#include "tests/support/menudriver.h"
#include "tests/support/messagelist.h"
#include "tests/support/modaldriver.h"
#include "workbench/devicedialog.h"
#include "workbench/mainwindow.h"
#include "workbench/optionsdialog.h"
#include "workbench/projecttree.h"
#include "workbench/recentlist.h"
#include "workbench/stringlistedit.h"
#include "workbench/workspace.h"

using namespace Workbench;

namespace {

QString drawn(const QTreeWidgetItem *item, int depth)
{
    QString text = QString(depth, ' ') + item->text(0) + '\n';
    for (int i = 0; i < item->childCount(); ++i)
        text += drawn(item->child(i), depth + 1);
    return text;
}

QStringList openedInEditor;
bool viewRefuses = false;

class TestView : public Core::IView
{
protected:
    void closeEvent(QCloseEvent *event) override { event->setAccepted(!viewRefuses); }
};

bool openInEditor(const QString &file, const DEV::DeviceArg &)
{
    openedInEditor << QFileInfo(file).fileName();
    Core::ViewManager::instance()->showView(new TestView);
    return true;
}

// A wizard that makes one file in the folder and adds it to the project.
class TestWizard : public Core::IFileWizardFactory
{
public:
    QString id() const override { return "test"; }
    QString displayName() const override { return "Test File"; }
    QString description() const override { return "Makes a file."; }
    void runWizard(QWidget *, const QString &path) override
    {
        put(path + "/new.zub", "");
        Core::ProjectManager::currentProject()->addFile(path + "/new.zub");
    }
};

const char *const projectText =
    R"({"version": 1, "name": "demo", "topModule": "top", "device": {"partNumber": "PN"},
    "files": [{"path": "a.v"}, {"path": "gone.sv"}, {"path": "b.vhd", "enabled": false}, {"path": "c.zub"}]})";

} // namespace

class WindowTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        Core::EditorRegistry::announce("zub", openInEditor);
        Core::FileWizardRegistry::announce([]() -> Core::IFileWizardFactory * { return new TestWizard; });
        Core::FileWizardRegistry::createFactories();
    }
    void cleanupTestCase() { Core::FileWizardRegistry::clear(); }

    void init()
    {
        m_dir.reset(new QTemporaryDir);
        for (const char *file : {"a.v", "b.vhd", "c.zub"})
            put(m_dir->filePath(file), "");
        put(m_dir->filePath("demo.jexprj"), projectText);
        m_settings.reset(new QSettings(m_dir->filePath("settings"), QSettings::IniFormat));
        m_window.reset(new MainWindow(m_settings.get()));
        m_window->show();
        viewRefuses = false;
        openedInEditor.clear();
    }
    void cleanup() { m_window.reset(); }

    void showsTheProject()
    {
        QVERIFY(m_window->workspace()->openProject(m_dir->filePath("demo.jexprj")));
        auto *tree = m_window->findChild<ProjectTree *>();
        QCOMPARE(drawn(tree->topLevelItem(0), 0), QString("demo\n"
                                                          " Top module: top\n"
                                                          " Device: PN\n"
                                                          " Design files (3)\n"
                                                          "  a.v\n"
                                                          "  gone.sv (missing)\n"
                                                          "  b.vhd (disabled)\n"
                                                          " Configurations (1)\n"
                                                          "  c.zub\n"));
        QStringList labels;
        for (const QLabel *label : m_window->statusBar()->findChildren<QLabel *>())
            labels << label->text();
        QCOMPARE(labels.join(" | "), QString("Top: top | Device: PN"));
        const QString messages = messageText(*m_window);
        QVERIFY(messages.contains("Opened the project " + m_dir->filePath("demo.jexprj")));
        QVERIFY(messages.contains("The project's file " + m_dir->filePath("gone.sv") + " is missing."));
        QCOMPARE(recentProjects(m_settings.get()).paths(), QStringList(m_dir->filePath("demo.jexprj")));
    }

    void filesOfTheTree()
    {
        QVERIFY(m_window->workspace()->openProject(m_dir->filePath("demo.jexprj")));
        const Core::ProjectData &data = m_window->workspace()->project()->data();
        auto *tree = m_window->findChild<ProjectTree *>();
        tree->topLevelItem(0)->child(2)->child(0)->setSelected(true);
        std::unique_ptr<QMenu> menu(tree->createFileMenu());
        QString found;
        for (const char *entry : {"Part of the Design", "SystemVerilog", "Remove from Project"}) {
            named(entry, menu->actions() + menu->findChild<QMenu *>()->actions())->trigger();
            const Core::SourceFile &first = data.files.first();
            found += QString("%1 %2 %3|").arg(data.files.size()).arg(first.type).arg(first.enabled);
        }
        QCOMPARE(found, QString("4 2 0|4 3 0|3 3 1|")); // the second file comes first in the end
        tree->topLevelItem(0)->child(2)->child(1)->setSelected(true);
        QTest::keyClick(tree, Qt::Key_Delete);
        QCOMPARE(data.files.size(), 2);
        QVERIFY(m_window->isWindowModified());
    }

    void openingWithoutEditorOrProject()
    {
        ModalDriver driver;
        driver.press(QMessageBox::Ok);
        driver.press(QMessageBox::Ok);
        QVERIFY(!m_window->workspace()->openFile(m_dir->filePath("a.v")));
        QVERIFY(!m_window->workspace()->openFile(m_dir->filePath("none.jexprj")));
        QCOMPARE(driver.seen.join('\n'),
                 QString("critical | Error | There is no editor for %1/a.v. | OK\n"
                         "critical | Error | Can not read the project %1/none.jexprj: No such file or "
                         "directory. | OK")
                     .arg(m_dir->path()));
        QVERIFY(m_window->workspace()->openFile(m_dir->filePath("c.zub")));
        QCOMPARE(m_window->workspace()->project()->name(), QString("demo")); // the one beside it
        QCOMPARE(openedInEditor, QStringList("c.zub"));
    }

    void quitAsks()
    {
        const auto storedTop = [this] {
            Core::Project stored;
            return stored.load(m_dir->filePath("demo.jexprj"), nullptr) ? stored.data().topModule : "?";
        };
        QVERIFY(m_window->workspace()->openFile(m_dir->filePath("c.zub")));
        viewRefuses = true;
        QVERIFY(!m_window->close());
        viewRefuses = false;
        m_window->workspace()->project()->setOption("TopModule", "other");
        ModalDriver driver;
        driver.press(QMessageBox::Cancel);
        QVERIFY(!m_window->close());
        QCOMPARE(Core::ViewManager::instance()->views().size(), 1);
        QCOMPARE(storedTop(), QString("top"));
        QVERIFY(!m_settings->contains("geometry"));
        driver.press(QMessageBox::Save);
        QVERIFY(m_window->close());
        QCOMPARE(storedTop(), QString("other"));
        QVERIFY(m_settings->contains("geometry"));
        QVERIFY(m_window->workspace()->openProject(m_dir->filePath("demo.jexprj")));
        m_window->workspace()->project()->setOption("TopModule", "third");
        driver.press(QMessageBox::Discard);
        QVERIFY(m_window->close());
        QCOMPARE(storedTop(), QString("other"));
        driver.seen.removeDuplicates();
        QCOMPARE(driver.seen.join('\n'),
                 QString("question | Save Project | The project has changes that are not saved.\n"
                         "Save the changes to \"demo\"? | Cancel Discard Save*"));
    }

    void newFileRunsTheWizardAndOpensWhatItMade()
    {
        QVERIFY(m_window->workspace()->openProject(m_dir->filePath("demo.jexprj")));
        ModalDriver driver;
        driver.then([](QDialog *dialog) {
            QCOMPARE(dialog->findChild<QListWidget *>()->item(0)->text(),
                     QString("Test File\nMakes a file."));
            auto *ok = dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
            auto *folder = dialog->findChild<QLineEdit *>();
            const QString first = folder->text();
            folder->setText("/none");
            QVERIFY(!ok->isEnabled());
            folder->setText(first);
            ok->click();
        });
        action("New...")->trigger();
        QCOMPARE(openedInEditor, QStringList("new.zub"));
        QVERIFY(action("Close")->isEnabled());
        action("Close")->trigger();
        QVERIFY(!action("Close")->isEnabled());
    }

    void optionsAreSetOnOk()
    {
        QVERIFY(m_window->workspace()->openProject(m_dir->filePath("demo.jexprj")));
        Core::Project *project = m_window->workspace()->project();
        OptionsDialog dialog(project, m_window.get());
        dialog.findChild<QComboBox *>("topModule")->setCurrentText(" soc ");
        dialog.findChild<QComboBox *>("verilogStandard")->setCurrentText("1364-2005");
        dialog.findChild<StringListEdit *>("defines")->setValues({"A=1", " ", "B"});
        dialog.findChild<StringListEdit *>("undefines")->setValues({"U"});
        dialog.findChild<StringListEdit *>("parameters")->setValues({"P=1"});
        dialog.findChild<StringListEdit *>("librarySuffixes")->setValues({".vo"});
        QStringList tops; // the last to change, since an editor asks about the first that it heard of
        connect(project, &Core::Project::changed, &dialog, [&] { tops << project->data().topModule; });
        dialog.accept();
        QCOMPARE(tops.indexOf("soc"), tops.size() - 1);
        const Core::ProjectData &data = project->data();
        QCOMPARE(
            QStringList({data.topModule, data.verilogStandard, data.defines.join(' '),
                         data.undefines.join(' '), data.parameters.join(' '), data.librarySuffixes.join(' ')})
                .join('|'),
            QString("soc|1364-2005|A=1 B|U|P=1|.vo"));
        OptionsDialog again(project, m_window.get());
        again.findChild<QComboBox *>("verilogStandard")->setCurrentIndex(0);
        again.accept();
        QCOMPARE(project->data().verilogStandard, QString());
    }

    void librariesOfVhdlFiles()
    {
        Workspace *workspace = m_window->workspace();
        QVERIFY(workspace->openProject(m_dir->filePath("demo.jexprj")));
        auto *tree = m_window->findChild<ProjectTree *>();
        const auto fileItem = [tree] {
            return tree->findItems("b.vhd", Qt::MatchStartsWith | Qt::MatchRecursive);
        };
        fileItem().first()->setSelected(true);
        ModalDriver driver;
        driver.then([](QDialog *dialog) {
            dialog->findChild<QLineEdit *>()->setText(" lib ");
            dialog->accept();
        });
        const std::unique_ptr<QMenu> menu(tree->createFileMenu());
        named("Library...", menu->actions())->trigger();
        QCOMPARE(workspace->project()->data().files.at(2).library, QString("lib"));
        QCOMPARE(fileItem().first()->text(0), QString("b.vhd [lib] (disabled)"));
    }

    // What another tool keeps is read, and becomes one of our own elsewhere.
    void foreignProject()
    {
        const QString path = m_dir->filePath("demo.eda.yml");
        const QByteArray text = "name: other\nfiles: [a.v]\ntoplevel: a\nhooks: {}\n";
        put(path, text);
        QVERIFY(m_window->workspace()->openFile(path));
        const QString messages = messageText(*m_window);
        QVERIFY(messages.contains("Read the project " + path + ". Save Project As"));
        QVERIFY(messages.contains("Not understood, and left out: \"hooks\"."));
        QCOMPARE(recentProjects(m_settings.get()).paths(), QStringList(path));
        const QString own = m_dir->filePath("own");
        ModalDriver driver;
        driver.then(choosing(own));
        action("Save Project As...")->trigger();
        QCOMPARE(m_window->workspace()->project()->filePath(), own + ".jexprj");
        QVERIFY(contents(own + ".jexprj").contains("\"path\": \"a.v\""));
        QCOMPARE(contents(path), text);
    }

    void deviceIsPicked()
    {
        DEV::DeviceArg unknown;
        unknown.partNumber = "not in the table";
        DeviceDialog dialog(unknown, nullptr);
        QCOMPARE(dialog.device(), unknown);
        dialog.findChild<QLineEdit *>()->setText("lfe5u-25");
        QCOMPARE(dialog.device().device, QString("LFE5U-25F")); // the only one that is left
        auto *ok = dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
        dialog.findChild<QLineEdit *>()->setText("no such device");
        QVERIFY(!ok->isEnabled());
        dialog.findChild<QLineEdit *>()->setText("");
        auto *tree = dialog.findChild<QTreeWidget *>();
        tree->setCurrentItem(tree->findItems("(none)", Qt::MatchExactly).first());
        QVERIFY(ok->isEnabled());
        QCOMPARE(dialog.device(), DEV::DeviceArg());
        QTest::qWait(300); // the filter's clear button fades in, and leaks when its field dies meanwhile
    }

    void recentProjectsAreTheLatestTen()
    {
        for (int i = 0; i < 12; ++i)
            recentProjects(m_settings.get()).add(QString::number(i));
        recentProjects(m_settings.get()).add("5");
        recentProjects(m_settings.get()).remove("4");
        QCOMPARE(recentProjects(m_settings.get()).paths().join(' '), QString("5 11 10 9 8 7 6 3 2"));
        QVERIFY(recentProjects(nullptr).paths().isEmpty());
    }

private:
    QAction *action(const QString &text)
    {
        return named(text, m_window->menuBar()->findChildren<QAction *>());
    }

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<QSettings> m_settings;
    std::unique_ptr<MainWindow> m_window;
};

QTEST_MAIN(WindowTest)
#include "tst_window.moc"
