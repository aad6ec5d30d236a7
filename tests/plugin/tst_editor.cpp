#include <QtWidgets>

#include "host/actionmanager.h"
#include "host/designmanager.h"
#include "host/editorregistry.h"
#include "host/filewizard.h"
#include "host/iplugin.h"
#include "host/iview.h"
#include "host/viewmanager.h"
#include "tests/support/configtext.h"
#include "tests/support/menudriver.h"
#include "tests/support/netpicker.h"
#include "tests/support/workspace.h"

const char counterSource[] = R"(
module counter(input clk, input rst, output reg [3:0] count, output tick);
  assign tick = &count;
  always @(posedge clk) count <= rst ? 4'd0 : count + 4'd1;
endmodule
)";

const char topSource[] = R"(
module top(input clk, input rst, input [3:0] din, output reg [3:0] dout, output busy);
  wire [3:0] low;
  wire tick;
  counter u0(.clk(clk), .rst(rst), .count(low), .tick(tick));
  assign busy = tick | rst;
  always @(posedge clk) dout <= din ^ low;
endmodule
)";

const char wideSource[] = R"(
module top(input clk, input rst, input [3:0] din, output reg [3:0] dout, output busy);
  reg [63:0] wide;
  assign busy = &wide | rst;
  always @(posedge clk) {dout, wide} <= {wide, din};
endmodule
)";

static void click(QDialog *dialog, const char *button)
{
    QTest::mouseClick(dialog->findChild<QPushButton *>(button), Qt::LeftButton);
}

// The editor as it ships: the plug-in's library in a host with a window, on a design that is elaborated
// from its sources, worked with mouse and keys.
class EditorTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_window.reset(new QMainWindow);
        m_window->setCentralWidget(Core::ViewManager::instance()->tabWidget());
        m_window->resize(1200, 760);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
        Core::ViewManager::instance()->setDialogParent(m_window.get());

        QVERIFY(!Core::EditorRegistry::editorFor("a.zub"));
        m_loader.setFileName(PLUGIN_FILE);
        m_plugin = qobject_cast<ExtSys::IPlugin *>(m_loader.instance());
        QVERIFY2(m_plugin, qPrintable(m_loader.errorString()));
        QCOMPARE(m_loader.metaData().value("IID").toString(), QString(EXTSYS_IPLUGIN_IID));
        QVERIFY(m_plugin->initialize());
        m_plugin->extensionsInitialized();
        Core::FileWizardRegistry::createFactories();
        QCOMPARE(Core::FileWizardRegistry::factories().size(), 1);
    }

    void cleanupTestCase()
    {
        Core::FileWizardRegistry::clear();
        Core::EditorRegistry::clear();
        m_window.reset();
        m_plugin->shutDown();
        QVERIFY(m_loader.unload());
    }

    void init()
    {
        m_user.beginAnew();
        m_work.reset(new Workspace);
    }

    void cleanup()
    {
        if (view()) { // a test that failed half-way
            m_user.press(QMessageBox::Discard);
            closeTab();
        }
        m_work.reset();
        QVERIFY(m_user.done());
    }

    void editSaveReopen()
    {
        openNew();
        QCOMPARE(view()->windowTitle(), QString("probe.zub *"));
        pick("btnSampleClock", "clk", {"top/clk"});
        pick("btnAdd", "", {"top/dout[3:0]", "top/low[3]", "top/low[2]", "top/busy"});
        QCOMPARE(rows(tree()), QStringList({"top/dout[3:0] = dout[3] dout[2] dout[1] dout[0]", "top/low[3]",
                                            "top/low[2]", "top/busy"}));
        clickRows(tree(), {"top/low[3]", "top/low[2]"});
        chooseFromMenu(tree(), "Group");
        chooseFromMenu(tree(), "Rename");
        QTest::keyClicks(tree()->findChild<QLineEdit *>(), "upper half");
        QTest::keyClick(tree()->findChild<QLineEdit *>(), Qt::Key_Return);
        clickRows(tree(), {"top/dout[3:0]"});
        chooseFromMenu(tree(), "Reverse");
        chooseFromMenu(tree(), "Disable");
        const QStringList edited(
            {"upper half = low[3] low[2]", "top/busy", "top/dout[3:0] = dout[0] dout[1] dout[2] dout[3]"});
        QCOMPARE(rows(tree()), edited);
        QCOMPARE(save()->text(), QString("&Save \"probe.zub *\""));
        QVERIFY(save()->isEnabled());
        save()->trigger();
        QCOMPARE(m_user.seen.mid(2), QStringList()); // two searches and no complaint
        QCOMPARE(view()->windowTitle(), QString("probe.zub"));
        QVERIFY(!save()->isEnabled());
        const QString saved =
            "core 0 clock top/clk edge 0 implementation 0 amount 1024, 2 of 3 rows enabled\n"
            "g:top/low[3:2]=upper half{top/low[3],top/low[2]} s:top/busy "
            "!b:top/dout[3:0]{!top/dout[0],!top/dout[1],!top/dout[2],!top/dout[3]}";
        QCOMPARE(configText(path("probe.zub")).join('\n'), saved);

        closeTab();
        QVERIFY(!view());
        QVERIFY(open("probe.zub"));
        QCOMPARE(rows(tree()), edited);
        closeTab();
        QCOMPARE(configText(path("probe.zub")).join('\n'), saved);
    }

    // What comes with a design that changed on disk is there for the next search.
    void designChangedOutside()
    {
        openNew();
        const QByteArray spare = "wire spare = &count; assign tick = spare";
        m_work->write("counter.v", QByteArray(counterSource).replace("assign tick = &count", spare));
        QTRY_VERIFY_WITH_TIMEOUT(find<QLabel>("labelFile"), 10000);
        QCOMPARE(find<QLabel>("labelFile")->text(), QString("Design files changed. Do you want to reload?"));
        press("btnA");
        QTRY_VERIFY(!find<QLabel>("labelFile"));
        pick("btnAdd", "spare", {"top/u0/spare"});
        QCOMPARE(rows(tree()), QStringList("top/u0/spare"));
    }

    // The bundled example: nothing to complain about, and saving an edit that was taken back writes the same
    // file.
    void exampleComesBackAsItWas()
    {
        QCOMPARE(QProcess::execute("cp", {"-r", EXAMPLE_DIR, path("soc")}), 0);
        Core::Project project;
        QString error;
        QVERIFY2(project.load(path("soc/soc.jexprj"), &error), qPrintable(error));
        Core::ProjectManager::setCurrentProject(&project);
        for (const QString &file : QDir(path("soc")).entryList({"*.zub"})) {
            const QString name = "soc/" + file;
            const QByteArray before = m_work->read(name);
            QVERIFY(open(qPrintable(name)));
            QCOMPARE(view()->windowTitle(), file);
            for (const QLabel *label : view()->findChildren<QLabel *>())
                QVERIFY2(!label->text().contains("red>"), qPrintable(label->text()));
            showTab(view()->findChildren<QTabBar *>().first()->count() - 1);
            QLineEdit *clock = find<QLineEdit>("editSampleClock");
            QTest::keyClicks(clock, "x");
            QCOMPARE(view()->windowTitle(), file + " *");
            QTest::keyClick(clock, Qt::Key_Backspace);
            save()->trigger();
            QCOMPARE(view()->windowTitle(), file);
            closeTab();
            QVERIFY2(m_work->read(name) == before, qPrintable(file));
        }
        QCOMPARE(m_user.seen, QStringList());
        Core::ProjectManager::setCurrentProject(&m_work->project);
    }

    // From the wizard that makes the file to the removal of a core.
    void standardFile()
    {
        makeFile();
        QVERIFY(open("probe1.zub"));
        QCOMPARE(view()->windowTitle(), QString("probe1.zub *"));
        fillPort(0, {"top/rst"});
        bindUnit(0, "Trigger Port 0", "R");
        addExpression({"M0"});
        setCapture("top/clk", {"top/busy"});

        chooseFromMenu(cores(), "Add");
        QCOMPARE(rows(cores()), QStringList({"Core 0", "Core 1"}));
        fillPort(0, {"top/wide[63:0]"});
        fillPort(1, {"top/dout[3:0]"});
        fillPort(2, {"top/rst", "top/busy"});
        bindUnit(0, "Trigger Port 0", QString(64, 'X'));
        bindUnit(1, "Trigger Port 1", "01RF");
        bindUnit(2, "Trigger Port 2", "1B");
        bindUnit(12, "Trigger Port 1", "0000");
        addExpression({"M0", "AND", "M1"});
        addExpression({"LeftBracket", "M1", "OR", "M2", "RightBracket", "AND", "NOT", "M0"});
        addExpression({"M1", "XOR", "M12"});
        addExpression({"NOT", "M2"});
        const QStringList valid({"M0&M1", "(M1|M2)&!M0", "!M2"});
        QCOMPARE(expressions(Qt::gray), QStringList());
        QCOMPARE(find<QTableView>("tableMu")->model()->rowCount(), 16);
        QTest::keyClick(find<QComboBox>("ModeComboBox"), Qt::Key_Down);
        QCOMPARE(find<QTableView>("tableMu")->model()->rowCount(), 10);
        QCOMPARE(expressions(Qt::gray), QStringList("M1^M12"));
        QCOMPARE(expressions(Qt::black), valid);

        const QByteArray before = m_work->read("probe1.zub");
        m_user.then([](QDialog *dialog) { QTest::keyClick(dialog, Qt::Key_Return); });
        save()->trigger();
        QCOMPARE(m_user.seen.last(),
                 "critical | Error | Your settings contain some errors." + QString(13, ' ') +
                     " | OK* Show Details... | "
                     "Core 1: No sample clock specified\nCore 1: No capture signals specified");
        QVERIFY(m_work->read("probe1.zub") == before);

        setCapture("top/clk", {"top/dout[3:0]", "top/busy"});
        save()->trigger();
        QCOMPARE(view()->windowTitle(), QString("probe1.zub"));
        const QString first =
            "core 0 clock top/clk edge 0 implementation 0 amount 1024, 1 of 1 rows enabled, top top\n"
            "s:top/busy\nport 0: top/rst\nM0 port 0 value R\ndynamic: M0\n";
        const QString second =
            "core %1 clock top/clk edge 0 implementation 0 amount 1024, 2 of 2 rows enabled, top top\n"
            "b:top/dout[3:0]{top/dout[3],top/dout[2],top/dout[1],top/dout[0]} s:top/busy\n"
            "port 0: top/wide[63:0]\nport 1: top/dout[3:0]\nport 2: top/rst top/busy\n"
            "M0 port 0 value " +
            QString(64, 'X') + "\nM1 port 1 value 01RF\nM2 port 2 value 1B\nstatic: " + valid.join(", ");
        QCOMPARE(configText(path("probe1.zub")).join('\n'), first + second.arg(1));

        closeTab();
        QVERIFY(!view());
        QVERIFY(open("probe1.zub"));
        clickRows(cores(), {"Core 1"});
        QCOMPARE(expressions(Qt::black), valid);
        clickRows(cores(), {"Core 0"});
        m_user.press(QMessageBox::Ok);
        chooseFromMenu(cores(), "Remove");
        QCOMPARE(rows(cores()), QStringList("Core 0"));
        save()->trigger();
        QCOMPARE(configText(path("probe1.zub")).join('\n'), second.arg(0));
        closeTab();
        QVERIFY(!view());
    }

private:
    QString path(const char *name) const { return m_work->path(name); }
    bool open(const char *name)
    {
        return Core::EditorRegistry::editorFor(name)(
            path(name), TE::TaskEngine::instance()->designManager()->currentDevice());
    }
    static Core::IView *view() { return Core::ViewManager::instance()->currentView(); }
    static void closeTab() { Core::ViewManager::instance()->closeView(view()); }
    static QAction *save() { return Core::ActionManager::instance()->command("Core.Action.Save"); }
    // The page in view comes first: pages and the view around them have controls of the same names.
    template <class Widget>
    static Widget *find(const char *name)
    {
        QStackedWidget *pages = view()->findChild<QStackedWidget *>("stackedWidget");
        Widget *found = pages->currentWidget()->findChild<Widget *>(name);
        return found ? found : view()->findChild<Widget *>(name);
    }
    static void showTab(int index)
    {
        QTabBar *tabs = find<QStackedWidget>("stackedWidget")->currentWidget()->findChild<QTabBar *>();
        QTest::mouseClick(tabs, Qt::LeftButton, Qt::NoModifier, tabs->tabRect(index).center());
    }
    static void press(const char *button) { QTest::mouseClick(find<QPushButton>(button), Qt::LeftButton); }

    void pick(const char *opener, const QString &search, const QStringList &names)
    {
        m_user.then(pickNets(search, names));
        press(opener);
    }

    static QStringList rows(QTreeWidget *tree)
    {
        QStringList lines;
        for (int i = 0; i < tree->topLevelItemCount(); ++i) {
            const QTreeWidgetItem *row = tree->topLevelItem(i);
            QStringList members;
            for (int k = 0; k < row->childCount(); ++k)
                members << row->child(k)->text(0).section('/', -1);
            lines << row->text(0) + (members.isEmpty() ? "" : " = " + members.join(' '));
        }
        return lines;
    }

    // By the right button, as the window system tells of it, on the first selected row.
    void chooseFromMenu(QTreeWidget *tree, const QString &text)
    {
        const QPoint onRow = tree->visualItemRect(tree->selectedItems().first()).center();
        const QStringList offered = useMenu(
            [&] {
                QTest::mouseClick(m_window->windowHandle(), Qt::RightButton, Qt::NoModifier,
                                  tree->viewport()->mapTo(m_window.get(), onRow));
            },
            text);
        QVERIFY2(offered.contains(text), qPrintable(offered.join(", ")));
    }

    void openNew()
    {
        m_work->addDesign("counter.v", counterSource);
        m_work->addDesign("top.v", topSource);
        JEX::fillInfoForEmptyJexConfig(path("probe.zub"), JEX::LiteMode);
        QVERIFY(open("probe.zub"));
    }
    static QTreeWidget *tree() { return find<QTreeWidget>("treeWidgetSignal"); }

    void makeFile()
    {
        m_work->addDesign("top.v", wideSource);
        m_user.then([](QDialog *dialog) {
            QWizard *wizard = qobject_cast<QWizard *>(dialog);
            QVERIFY(wizard->findChild<QRadioButton *>("stdRadioButton")->isChecked());
            QTest::mouseClick(wizard->button(QWizard::NextButton), Qt::LeftButton);
            QTest::keyClicks(wizard->findChild<QLineEdit *>("fileLineEdit"), "probe.1");
            QTest::mouseClick(wizard->button(QWizard::NextButton), Qt::LeftButton);
            QTest::mouseClick(wizard->button(QWizard::FinishButton), Qt::LeftButton);
        });
        Core::FileWizardRegistry::factories().first()->runWizard(m_window.get(), m_work->dir.path());
        // A dot can not be typed.
        QCOMPARE(m_work->project.data().files.last().path, path("probe1.zub"));
    }

    void fillPort(int port, const QStringList &names)
    {
        m_user.then([](QDialog *dialog) {
            click(dialog, "btnAdd");
            leave(dialog);
        });
        m_user.then(pickNets("", names));
        QTreeWidget *ports = find<QTreeWidget>("treeTrigger");
        const QTreeWidgetItem *row = ports->topLevelItem(port);
        doubleClick(ports, ports->model()->index(port, 0));
        QTRY_VERIFY(m_user.done());
        QVERIFY(row->isExpanded());
        QCOMPARE(row->childCount(), names.size());
    }

    void bindUnit(int unit, const QString &port, const QString &value)
    {
        m_user.then([=](QDialog *dialog) {
            QComboBox *ports = dialog->findChild<QComboBox *>("comboPort");
            for (int i = 0; i < ports->count() && !ports->currentText().startsWith(port); ++i)
                QTest::keyClick(ports, Qt::Key_Down);
            QLineEdit *bits = dialog->findChild<QLineEdit *>("editValue");
            bits->selectAll();
            QTest::keyClicks(bits, value);
            leave(dialog);
        });
        QTableView *units = find<QTableView>("tableMu");
        const QModelIndex row = units->model()->index(unit, 0);
        doubleClick(units, row);
        QTRY_VERIFY(m_user.done());
        QCOMPARE(row.data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
    }

    void addExpression(const QStringList &buttons)
    {
        m_user.then([buttons](QDialog *dialog) {
            for (const QString &button : buttons)
                click(dialog, qPrintable("btn" + button));
            leave(dialog);
        });
        doubleClick(find<QListWidget>("listExpression"), QModelIndex());
        QTRY_VERIFY(m_user.done());
    }

    void setCapture(const QString &clock, const QStringList &names)
    {
        showTab(1);
        pick("btnSampleClock", "", {clock});
        pick("btnAdd", "", names);
        QCOMPARE(find<QTreeWidget>("treeWidgetCapSigs")->topLevelItemCount(), names.size());
        showTab(0);
    }

    static QTreeWidget *cores() { return view()->findChild<QTreeWidget *>("treeWidget"); }

    static QStringList expressions(const QColor &colour)
    {
        QStringList texts;
        const QListWidget *list = find<QListWidget>("listExpression");
        for (int i = 0; i < list->count(); ++i) {
            if (list->item(i)->foreground().color() == colour)
                texts << list->item(i)->text();
        }
        return texts;
    }

    std::unique_ptr<QMainWindow> m_window;
    std::unique_ptr<Workspace> m_work;
    QPluginLoader m_loader;
    ExtSys::IPlugin *m_plugin = nullptr;
    ModalDriver m_user;
};

QTEST_MAIN(EditorTest)
#include "tst_editor.moc"
