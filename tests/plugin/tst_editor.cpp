// The editor as it ships: the plug-in's library in a host with a window, on a
// design that is elaborated from its sources, worked with mouse and keys.

#include <QtTest>

#include <QAction>
#include <QComboBox>
#include <QDirIterator>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QPluginLoader>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTextEdit>
#include <QTreeWidget>
#include <QWizard>
#include <memory>

#include "host/actionmanager.h"
#include "host/designmanager.h"
#include "host/editorregistry.h"
#include "host/filewizard.h"
#include "host/iplugin.h"
#include "host/iview.h"
#include "host/project.h"
#include "host/viewmanager.h"
#include "model/jex/jexfile.h"
#include "model/jex/jextool.h"
#include "tests/support/netpicker.h"
#include "tests/support/workspace.h"

namespace {

const char counterSource[] = R"(
module counter(input clk, input rst, output reg [3:0] count, output tick);
  assign tick = &count;
  always @(posedge clk) count <= rst ? 4'd0 : count + 4'd1;
endmodule
)";

const char topSource[] = R"(
module top(input clk, input rst, input [7:0] din, output reg [7:0] dout, output busy);
  wire [3:0] low;
  wire tick;
  counter u0(.clk(clk), .rst(rst), .count(low), .tick(tick));
  assign busy = tick | rst;
  always @(posedge clk) dout <= din ^ {4'd0, low};
endmodule
)";

QString describe(const JEX::SignalItem &item)
{
    QString text = QString("%1 type %2").arg(item.name).arg(item.type);
    if (!item.alias.isEmpty())
        text += QString(" shown as '%1'").arg(item.alias);
    if (!item.capEnable)
        text += " disabled";
    QStringList members;
    for (const JEX::SignalItem &member : item.members)
        members << member.name.section('/', -1);
    return members.isEmpty() ? text : text + " = " + members.join(' ');
}

// What stands in the file, one line a core and one a row.
QStringList contents(const QString &path)
{
    bool ok = false;
    QString error;
    QStringList lines;
    for (JEX::AOCore_Lite *core : JEX::readJEXConfigFromXml_Lite(path, &ok, &error)) {
        lines << QString("core %1 clock %2 edge %3 implementation %4 amount %5, %6 "
                         "of %7 rows enabled")
                     .arg(core->coreNumber)
                     .arg(core->sampleClock)
                     .arg(core->sampleEdge)
                     .arg(core->implementation)
                     .arg(core->captureAmount)
                     .arg(core->enabledCaptureSignals.size())
                     .arg(core->captureSignals.size());
        for (const JEX::SignalItem &item : core->captureSignals)
            lines << describe(item);
        delete core;
    }
    return ok ? lines : QStringList(error);
}

} // namespace

class TestEditor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();
    void wizardMakesALiteFile();
    void editSaveReopen();
    void fileRemovedOutside();
    void fileChangedOutside();
    void sourceChangedOutside();
    void topModuleThatIsNone();
    void closingAsks();
    void exampleComesBackAsItWas();

private:
    QString path(const char *name) const { return m_work->path(name); }
    // Opens the file of the test, made anew unless it is there.
    Core::IView *openFile(const char *name = "probe.zub");
    static Core::IView *view() { return Core::ViewManager::instance()->currentView(); }
    static QTreeWidget *tree() { return view()->findChild<QTreeWidget *>("treeWidgetSignal"); }
    static QPushButton *pageButton(const char *name);
    static QStringList rows();
    // The banner's sentence, as soon as there is one.
    static QString banner();
    static void answerBanner(const char *button);

    void pick(const char *opener, const QString &search, const QStringList &names);
    void select(const QStringList &texts);
    void chooseFromMenu(const QString &text);
    void closeTab();

    std::unique_ptr<QMainWindow> m_window;
    std::unique_ptr<Workspace> m_work;
    QPluginLoader m_loader;
    ModalDriver m_user;
};

void TestEditor::initTestCase()
{
    m_window.reset(new QMainWindow);
    m_window->setCentralWidget(Core::ViewManager::instance()->tabWidget());
    m_window->resize(1000, 700);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    Core::ViewManager::instance()->setDialogParent(m_window.get());

    m_loader.setFileName(PLUGIN_FILE);
    ExtSys::IPlugin *plugin = qobject_cast<ExtSys::IPlugin *>(m_loader.instance());
    QVERIFY2(plugin, qPrintable(m_loader.errorString()));
    QVERIFY(plugin->initialize());
    plugin->extensionsInitialized();
    Core::FileWizardRegistry::createFactories();
}

void TestEditor::cleanupTestCase()
{
    qobject_cast<ExtSys::IPlugin *>(m_loader.instance())->shutDown();
    Core::FileWizardRegistry::clear();
    Core::EditorRegistry::clear();
    m_window.reset();
}

void TestEditor::init()
{
    m_user.seen.clear();
    m_work.reset(new Workspace);
    m_work->addDesign("counter.v", counterSource);
    m_work->addDesign("top.v", topSource);
}

void TestEditor::cleanup()
{
    if (view()) { // a test that failed half-way
        m_user.press(QMessageBox::Discard);
        closeTab();
    }
    m_work.reset();
    QVERIFY(m_user.done());
}

Core::IView *TestEditor::openFile(const char *name)
{
    const QString file = path(name);
    if (!QFile::exists(file))
        JEX::fillInfoForEmptyJexConfig(file, JEX::LiteMode);
    const bool opened = Core::EditorRegistry::editorFor(file)(
        file, TE::TaskEngine::instance()->designManager()->currentDevice());
    return opened ? view() : nullptr;
}

QPushButton *TestEditor::pageButton(const char *name)
{
    // The view has buttons of the same names above its pages.
    return view()->findChild<QWidget *>("stackedWidget")->findChild<QPushButton *>(name);
}

QStringList TestEditor::rows()
{
    QStringList lines;
    for (int i = 0; i < tree()->topLevelItemCount(); ++i) {
        const QTreeWidgetItem *row = tree()->topLevelItem(i);
        QStringList members;
        for (int k = 0; k < row->childCount(); ++k)
            members << row->child(k)->text(0).section('/', -1);
        lines << row->text(0) + (members.isEmpty() ? "" : " = " + members.join(' '));
    }
    return lines;
}

QString TestEditor::banner()
{
    QLabel *label = nullptr;
    QElapsedTimer time;
    time.start();
    while (!label && time.elapsed() < 10000) {
        QTest::qWait(50);
        label = view() ? view()->findChild<QLabel *>("labelFile") : nullptr;
    }
    return label && label->isVisible() ? label->text() : QString();
}

void TestEditor::answerBanner(const char *button)
{
    QTest::mouseClick(view()->findChild<QPushButton *>(button), Qt::LeftButton);
    QTest::qWait(0);
}

void TestEditor::pick(const char *opener, const QString &search, const QStringList &names)
{
    m_user.then(pickNets(search, names));
    QTest::mouseClick(pageButton(opener), Qt::LeftButton);
}

void TestEditor::select(const QStringList &texts)
{
    Qt::KeyboardModifiers keys = Qt::NoModifier;
    for (const QString &text : texts) {
        const auto hits = tree()->findItems(text, Qt::MatchExactly);
        QCOMPARE(hits.size(), 1);
        QTest::mouseClick(tree()->viewport(), Qt::LeftButton, keys,
                          tree()->visualItemRect(hits.first()).center());
        keys = Qt::ControlModifier;
    }
}

void TestEditor::chooseFromMenu(const QString &text)
{
    const QPoint onRow = tree()->visualItemRect(tree()->selectedItems().first()).center();
    QTest::mouseClick(tree()->viewport(), Qt::RightButton, Qt::NoModifier, onRow);
    QMenu *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    QVERIFY(menu);
    for (QAction *action : menu->actions()) {
        if (action->text() == text && action->isEnabled()) {
            QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier, menu->actionGeometry(action).center());
            return;
        }
    }
    menu->close();
    QFAIL(qPrintable(text));
}

void TestEditor::closeTab()
{
    Core::ViewManager::instance()->closeView(view());
}

void TestEditor::wizardMakesALiteFile()
{
    Core::IFileWizardFactory *factory = nullptr;
    for (Core::IFileWizardFactory *each : Core::FileWizardRegistry::factories()) {
        if (each->id() == "M.Wizard.JEX")
            factory = each;
    }
    QVERIFY(factory);
    QString summary;
    m_user.then([&](QDialog *dialog) {
        QWizard *wizard = qobject_cast<QWizard *>(dialog);
        QRadioButton *lite = wizard->findChild<QRadioButton *>("liteRadioButton");
        QTest::mouseClick(lite, Qt::LeftButton, Qt::NoModifier, QPoint(5, lite->height() / 2));
        QTest::mouseClick(wizard->button(QWizard::NextButton), Qt::LeftButton);
        QLineEdit *name = wizard->findChild<QLineEdit *>("fileLineEdit");
        QCOMPARE(name->text(), QString("work"));
        QTest::keyClicks(name, "probe.1");
        QTest::mouseClick(wizard->button(QWizard::NextButton), Qt::LeftButton);
        summary = wizard->currentPage()->findChild<QTextEdit *>()->toPlainText();
        QTest::mouseClick(wizard->button(QWizard::FinishButton), Qt::LeftButton);
    });
    factory->runWizard(m_window.get(), m_work->dir.path());

    const QString file = path("probe1.zub"); // a dot cannot be typed
    QCOMPARE(summary, QString("JEX\n    Jex Mode: Lite\n    Name: %1\n").arg(file));
    QCOMPARE(int(JEX::jexModeFromJexConfigFile(file)), int(JEX::LiteMode));
    QCOMPARE(m_work->project.data().files.last().path, file);
    QCOMPARE(contents(file), QStringList());
}

void TestEditor::editSaveReopen()
{
    QVERIFY(openFile());
    QCOMPARE(view()->windowTitle(), QString("probe.zub *"));
    QCOMPARE(view()->findChild<QComboBox *>("comboBoxAo")->currentText(), QString("AO 0"));

    pick("btnSampleClock", "clk", {"top/clk"});
    pick("btnAdd", "", {"top/dout[7:0]", "top/low[3]", "top/low[2]", "top/busy"});
    QCOMPARE(rows(), QStringList({"top/dout[7:0] = dout[7] dout[6] dout[5] "
                                  "dout[4] dout[3] dout[2] dout[1] dout[0]",
                                  "top/low[3]", "top/low[2]", "top/busy"}));
    QLabel *usage = view()->findChild<QLabel *>("label_8");
    QCOMPARE(usage->text(),
             QString("<font color = red>%1</font>/0").arg(JEX_TOOL::bsramNumberRequired(11, 1024)));

    select({"top/low[3]", "top/low[2]"});
    chooseFromMenu("Group");
    chooseFromMenu("Rename");
    QTest::keyClicks(tree()->findChild<QLineEdit *>(), "upper half");
    QTest::keyClick(tree()->findChild<QLineEdit *>(), Qt::Key_Return);
    select({"top/dout[7:0]"});
    chooseFromMenu("Reverse");
    chooseFromMenu("Disable");
    const QStringList edited({"upper half = low[3] low[2]", "top/busy",
                              "top/dout[7:0] = dout[0] dout[1] dout[2] dout[3] "
                              "dout[4] dout[5] dout[6] dout[7]"});
    QCOMPARE(rows(), edited);
    QCOMPARE(usage->text(),
             QString("<font color = red>%1</font>/0").arg(JEX_TOOL::bsramNumberRequired(3, 1024)));

    QAction *save = Core::ActionManager::instance()->command("Core.Action.Save");
    QCOMPARE(save->text(), QString("&Save \"probe.zub *\""));
    QVERIFY(save->isEnabled());
    save->trigger();
    QCOMPARE(m_user.seen.mid(2), QStringList()); // two searches and no complaint
    QCOMPARE(view()->windowTitle(), QString("probe.zub"));
    QVERIFY(!save->isEnabled());
    const QStringList saved({"core 0 clock top/clk edge 0 implementation 0 amount 1024, 2 of 3 rows "
                             "enabled",
                             "top/low[3:2] type -1 shown as 'upper half' = low[3] low[2]", "top/busy type 0",
                             "top/dout[7:0] type 1 disabled = dout[0] dout[1] dout[2] dout[3] "
                             "dout[4] dout[5] "
                             "dout[6] dout[7]"});
    QCOMPARE(contents(path("probe.zub")), saved);

    closeTab();
    QVERIFY(!view());
    QVERIFY(openFile());
    QCOMPARE(rows(), edited);
    QCOMPARE(view()->windowTitle(), QString("probe.zub"));
    closeTab();
    QCOMPARE(contents(path("probe.zub")), saved);
}

void TestEditor::fileRemovedOutside()
{
    QVERIFY(openFile());
    const QString file = path("probe.zub");
    QVERIFY(QFile::remove(file));
    QCOMPARE(banner(), QString("The file '%1' has been removed on disk.\nDo you "
                               "still want to keep it?")
                           .arg(file));
    answerBanner("btnA");
    QVERIFY(view());
    QVERIFY(!view()->findChild<QLabel *>("labelFile"));

    pick("btnSampleClock", "", {"top/clk"});
    pick("btnAdd", "", {"top/busy"});
    Core::ActionManager::instance()->command("Core.Action.Save")->trigger();
    QCOMPARE(contents(file).size(), 2);

    QVERIFY(QFile::remove(file));
    QVERIFY(!banner().isEmpty());
    answerBanner("btnB");
    QVERIFY(!view());
}

void TestEditor::fileChangedOutside()
{
    QVERIFY(openFile());
    const QString file = path("probe.zub");
    m_work->writeLite("probe.zub", 2);
    QCOMPARE(banner(), QString("The file '%1' changed on disk.\nDo you want to reload?").arg(file));
    answerBanner("btnA");
    QCOMPARE(rows(), QStringList("top/clk"));
    QCOMPARE(view()->findChild<QComboBox *>("comboBoxAo")->count(), 2);
}

void TestEditor::sourceChangedOutside()
{
    QVERIFY(openFile());
    m_work->write("counter.v",
                  QByteArray(counterSource)
                      .replace("assign tick = &count", "wire spare = &count; assign tick = spare"));
    QCOMPARE(banner(), QString("Design files changed. Do you want to reload?"));
    answerBanner("btnA");
    QVERIFY(!view()->findChild<QLabel *>("labelFile"));
    pick("btnAdd", "spare", {"top/u0/spare"});
    QCOMPARE(rows(), QStringList("top/u0/spare"));

    // The next change is reported again, and a design that cannot be read ends
    // the editor.
    m_work->write("counter.v", "module counter(");
    QCOMPARE(banner(), QString("Design files changed. Do you want to reload?"));
    m_user.then([](QDialog *dialog) { dialog->accept(); });
    answerBanner("btnA");
    QCOMPARE(m_user.seen.last(), QString("dialog | Design files contain some errors."));
    QVERIFY(!view());
}

void TestEditor::topModuleThatIsNone()
{
    m_work->project.setOption("TopModule", "tpo");
    m_user.press(QMessageBox::Ok);
    QVERIFY(!openFile());
    QCOMPARE(m_user.seen, QStringList("critical | Invalid Top Module | No module "
                                      "named \"tpo\", please reset top "
                                      "module. | OK"));
    QVERIFY(!view());

    m_work->project.setOption("TopModule", "top");
    QVERIFY(openFile());
    m_work->project.setOption("TopModule", "counter");
    QCOMPARE(banner(), QString("Top module changed. Do you want to reload?"));
    answerBanner("btnA");
    pick("btnSampleClock", "", {"counter/clk"});
}

void TestEditor::closingAsks()
{
    QVERIFY(openFile());
    const QString question =
        QString("question | Save | Save changes to \"%1\" ? | Cancel Discard OK*").arg(path("probe.zub"));
    m_user.press(QMessageBox::Cancel);
    closeTab();
    QVERIFY(view());

    m_user.press(QMessageBox::Ok); // to save,
    m_user.press(QMessageBox::Ok); // and that there are errors
    closeTab();
    QVERIFY(view());
    QCOMPARE(contents(path("probe.zub")), QStringList());

    m_user.press(QMessageBox::Discard);
    closeTab();
    QVERIFY(!view());
    QCOMPARE(m_user.seen,
             QStringList({question, question,
                          "critical | Error | Your settings contain some errors. | OK* Show Details...",
                          question}));
}

// The bundled example: nothing to complain about, and saving an edit that was taken back writes the same
// file.
void TestEditor::exampleComesBackAsItWas()
{
    const QDir example(EXAMPLE_DIR);
    QDirIterator files(example.path(), QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString copy = path("soc") + '/' + example.relativeFilePath(files.next());
        QVERIFY(QDir().mkpath(QFileInfo(copy).path()));
        QVERIFY(QFile::copy(files.filePath(), copy));
    }
    Core::Project project;
    QString error;
    QVERIFY2(project.load(path("soc/soc.jexprj"), &error), qPrintable(error));
    Core::ProjectManager::setCurrentProject(&project);
    const QByteArray before = m_work->read("soc/capture.zub");

    QVERIFY(openFile("soc/capture.zub"));
    QCOMPARE(view()->windowTitle(), QString("capture.zub"));
    QVERIFY(!view()->findChild<QLabel *>("label_8")->text().contains("red"));
    const QStringList shown = rows();
    QVERIFY(!shown.isEmpty());
    QLineEdit *clock = view()->findChild<QLineEdit *>("editSampleClock");
    QTest::keyClicks(clock, "x");
    QCOMPARE(view()->windowTitle(), QString("capture.zub *"));
    QTest::keyClick(clock, Qt::Key_Backspace);
    Core::ActionManager::instance()->command("Core.Action.Save")->trigger();
    QCOMPARE(view()->windowTitle(), QString("capture.zub"));
    QCOMPARE(rows(), shown);
    closeTab();
    QVERIFY(m_work->read("soc/capture.zub") == before);
    QCOMPARE(m_user.seen, QStringList());
    Core::ProjectManager::setCurrentProject(&m_work->project);
}

QTEST_MAIN(TestEditor)
#include "tst_editor.moc"
