#include <QAction>
#include <QCloseEvent>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

#include "host/editorregistry.h"
#include "host/filewizard.h"
#include "host/iview.h"
#include "host/project.h"
#include "host/viewmanager.h"
#include "workbench/boxrecorder.h"
#include "workbench/devicedialog.h"
#include "workbench/mainwindow.h"
#include "workbench/messagepane.h"
#include "workbench/newfiledialog.h"
#include "workbench/optionsdialog.h"
#include "workbench/projecttree.h"
#include "workbench/recentprojects.h"
#include "workbench/stringlistedit.h"
#include "workbench/workspace.h"

using namespace Workbench;

namespace {

void put(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

QString drawn(const QTreeWidgetItem *item, int depth)
{
    QString text = QString(depth, ' ') + item->text(0) + '\n';
    for (int i = 0; i < item->childCount(); ++i)
        text += drawn(item->child(i), depth + 1);
    return text;
}

// Presses a button of the box that will come up, and hands back what the box said.
void answerNextBox(QMessageBox::StandardButton button, QString *text)
{
    QTimer::singleShot(50, [button, text] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        QVERIFY(box);
        *text = box->windowTitle() + ": " + box->text();
        box->button(button)->click();
    });
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

Core::IFileWizardFactory *makeWizard()
{
    return new TestWizard;
}

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
        Core::FileWizardRegistry::announce(makeWizard);
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
        const QString messages = m_window->findChild<MessagePane *>()->toPlainText();
        QVERIFY(messages.contains("Opened the project " + m_dir->filePath("demo.jexprj")));
        QVERIFY(messages.contains("The project's file " + m_dir->filePath("gone.sv") + " is missing."));
        QCOMPARE(recentProjects(m_settings.get()), QStringList(m_dir->filePath("demo.jexprj")));
    }

    void fileMenuOfTheTree_data()
    {
        QTest::addColumn<QString>("entry");
        QTest::addColumn<QString>("expected"); // type and flag of "a.v", then the number of files
        QTest::newRow("leave out") << "Part of the &Design"
                                   << "2 0 4";
        QTest::newRow("type") << "SystemVerilog"
                              << "3 1 4";
        QTest::newRow("remove") << "&Remove from Project"
                                << "4 0 3"; // "b.vhd" is the second one then
    }
    void fileMenuOfTheTree()
    {
        QFETCH(QString, entry);
        QFETCH(QString, expected);
        QVERIFY(m_window->workspace()->openProject(m_dir->filePath("demo.jexprj")));
        auto *tree = m_window->findChild<ProjectTree *>();
        tree->topLevelItem(0)->child(2)->child(0)->setSelected(true);
        std::unique_ptr<QMenu> menu(tree->createFileMenu());
        QVERIFY(menu != nullptr);
        QList<QAction *> actions = menu->actions();
        for (const QMenu *sub : menu->findChildren<QMenu *>())
            actions += sub->actions();
        for (QAction *action : qAsConst(actions)) {
            if (action->text() == entry)
                action->trigger();
        }
        const Core::ProjectData &data = m_window->workspace()->project()->data();
        const Core::SourceFile file = data.files.at(data.files.size() == 4 ? 0 : 1);
        QCOMPARE(QString("%1 %2 %3").arg(file.type).arg(file.enabled).arg(data.files.size()), expected);
        QVERIFY(m_window->isWindowModified());
    }

    void openingWithoutEditorOrProject()
    {
        QString text;
        answerNextBox(QMessageBox::Ok, &text);
        QVERIFY(!m_window->workspace()->openFile(m_dir->filePath("a.v")));
        QCOMPARE(text, "Error: There is no editor for " + m_dir->filePath("a.v") + ".");
        answerNextBox(QMessageBox::Ok, &text);
        QVERIFY(!m_window->workspace()->openFile(m_dir->filePath("none.jexprj")));
        QCOMPARE(text, "Error: Can not read the project " + m_dir->filePath("none.jexprj") +
                           ": No such file or directory.");
        QVERIFY(m_window->workspace()->openFile(m_dir->filePath("c.zub")));
        QCOMPARE(m_window->workspace()->project()->name(), QString("demo")); // the one beside it
        QCOMPARE(openedInEditor, QStringList("c.zub"));
    }

    void quitAsks_data()
    {
        QTest::addColumn<int>("answer");
        QTest::addColumn<bool>("closed");
        QTest::addColumn<bool>("saved");
        QTest::newRow("save") << int(QMessageBox::Save) << true << true;
        QTest::newRow("discard") << int(QMessageBox::Discard) << true << false;
        QTest::newRow("cancel") << int(QMessageBox::Cancel) << false << false;
    }
    void quitAsks()
    {
        QFETCH(int, answer);
        QFETCH(bool, closed);
        QFETCH(bool, saved);
        QVERIFY(m_window->workspace()->openProject(m_dir->filePath("demo.jexprj")));
        QVERIFY(m_window->workspace()->openFile(m_dir->filePath("c.zub")));
        viewRefuses = true;
        QVERIFY(!m_window->close());
        viewRefuses = false;
        m_window->workspace()->project()->setOption("TopModule", "other");
        QString text;
        answerNextBox(QMessageBox::StandardButton(answer), &text);
        QCOMPARE(m_window->close(), closed);
        QCOMPARE(text, QString("Save Project: The project has changes that are not saved.\n"
                               "Save the changes to \"demo\"?"));
        Core::Project stored;
        QVERIFY(stored.load(m_dir->filePath("demo.jexprj"), nullptr));
        QCOMPARE(stored.data().topModule, QString(saved ? "other" : "top"));
        QCOMPARE(m_settings->contains("geometry"), closed);
    }

    void newFileRunsTheWizardAndOpensWhatItMade()
    {
        QVERIFY(m_window->workspace()->openProject(m_dir->filePath("demo.jexprj")));
        QTimer::singleShot(50, [] {
            auto *dialog = qobject_cast<NewFileDialog *>(QApplication::activeModalWidget());
            QVERIFY(dialog);
            QCOMPARE(dialog->findChild<QListWidget *>()->item(0)->text(),
                     QString("Test File\nMakes a file."));
            auto *ok = dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
            const QString folder = dialog->folder();
            dialog->findChild<QLineEdit *>()->setText("/none");
            QVERIFY(!ok->isEnabled());
            dialog->findChild<QLineEdit *>()->setText(folder);
            ok->click();
        });
        action("&New...")->trigger();
        QCOMPARE(openedInEditor, QStringList("new.zub"));
        QVERIFY(action("&Close")->isEnabled());
        action("&Close")->trigger();
        QVERIFY(!action("&Close")->isEnabled());
    }

    void optionsAreSetOnOk()
    {
        QVERIFY(m_window->workspace()->openProject(m_dir->filePath("demo.jexprj")));
        Core::Project *project = m_window->workspace()->project();
        OptionsDialog dialog(project, m_window.get());
        dialog.findChild<QLineEdit *>("topModule")->setText(" soc ");
        dialog.findChild<QComboBox *>("verilogStandard")->setCurrentText("1364-2005");
        dialog.findChild<StringListEdit *>("defines")->setValues({"A=1", " ", "B"});
        dialog.accept();
        QCOMPARE(project->data().topModule + ' ' + project->data().verilogStandard + ' ' +
                     project->data().defines.join(' '),
                 QString("soc 1364-2005 A=1 B"));
        OptionsDialog again(project, m_window.get());
        again.findChild<QComboBox *>("verilogStandard")->setCurrentIndex(0);
        again.accept();
        QCOMPARE(project->data().verilogStandard, QString());
    }

    void deviceIsPicked()
    {
        DEV::DeviceArg unknown;
        unknown.partNumber = "not in the table";
        DeviceDialog dialog(unknown, nullptr);
        QCOMPARE(dialog.device(), unknown);
        dialog.findChild<QLineEdit *>()->setText("lfe5u-25");
        auto *tree = dialog.findChild<QTreeWidget *>();
        QStringList shown;
        for (int i = 0; i < tree->topLevelItemCount(); ++i) {
            if (!tree->topLevelItem(i)->isHidden()) {
                shown << tree->topLevelItem(i)->text(2);
                tree->setCurrentItem(tree->topLevelItem(i));
            }
        }
        QCOMPARE(shown.join(' '), QString("LFE5U-25F"));
        QCOMPARE(dialog.device().device, QString("LFE5U-25F"));
        tree->setCurrentItem(tree->findItems("(none)", Qt::MatchExactly).first());
        QCOMPARE(dialog.device(), DEV::DeviceArg());
        QTest::qWait(300); // the filter's clear button fades in, and leaks when its field dies meanwhile
    }

    void recentProjectsAreTheLatestTen()
    {
        for (int i = 0; i < 12; ++i)
            addRecentProject(m_settings.get(), QString::number(i));
        addRecentProject(m_settings.get(), "5");
        removeRecentProject(m_settings.get(), "4");
        QCOMPARE(recentProjects(m_settings.get()).join(' '), QString("5 11 10 9 8 7 6 3 2"));
        QVERIFY(recentProjects(nullptr).isEmpty());
    }

    void unattendedBoxesAreRecorded()
    {
        const BoxRecorder boxes;
        QMessageBox::critical(m_window.get(), "Error", "Something <b>bad</b>.");
        QCOMPARE(
            QMessageBox::question(m_window.get(), "Save", "Save?", QMessageBox::Ok | QMessageBox::Cancel),
            QMessageBox::Cancel);
        QCOMPARE(boxes.texts().join('|'), QString("Error: Something <b>bad</b>.|Save: Save?"));
    }

private:
    QAction *action(const QString &text)
    {
        for (const QMenu *menu : m_window->menuBar()->findChildren<QMenu *>()) {
            for (QAction *action : menu->actions()) {
                if (action->text() == text)
                    return action;
            }
        }
        return nullptr;
    }

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<QSettings> m_settings;
    std::unique_ptr<MainWindow> m_window;
};

QTEST_MAIN(WindowTest)
#include "tst_window.moc"
