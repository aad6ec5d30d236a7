#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QTest>
#include <QTextEdit>
#include <QVBoxLayout>

#include "host/eventmanager.h"
#include "tests/support/modaldriver.h"
#include "tests/support/workspace.h"
#include "views/jexliteinserterview.h"
#include "views/reloadbanner.h"

using namespace RTLJEX;

namespace {

const char faultyDesign[] = "module top(input clk);\n  assign = 1;\nendmodule\n";

// An editor in a container of its own, as the host shows it.
struct Shown
{
    explicit Shown(const QString &file) : container(new QWidget), view(new JexLiteInserterView(container))
    {
        QVBoxLayout *layout = new QVBoxLayout(container);
        layout->addWidget(view);
        container->resize(900, 600);
        opened = view->open(file, QString(), &error);
        container->show();
    }
    ~Shown() { delete container; }

    template <class Widget>
    Widget *find(const char *name) const
    {
        return view->findChild<Widget *>(name);
    }
    // Something that a user edits.
    void edit() { find<QLineEdit>("editSampleClock")->setText("top/clk "); }

    QStringList banners() const
    {
        QStringList texts;
        for (ReloadBanner *banner : view->findChildren<ReloadBanner *>())
            texts << banner->findChild<QLabel *>("labelFile")->text();
        return texts;
    }
    void answer(const QString &button) const
    {
        for (QPushButton *found : view->findChild<ReloadBanner *>()->findChildren<QPushButton *>())
            if (found->text() == button)
                return found->click();
        QFAIL(qPrintable("no button " + button));
    }

    QPointer<QWidget> container;
    QPointer<JexLiteInserterView> view;
    QString error;
    bool opened;
};

QString changedText(const QString &path)
{
    return QString("The file '%1' changed on disk.\nDo you want to reload?").arg(path);
}

QString removedText(const QString &path)
{
    return QString("The file '%1' has been removed on disk.\nDo you still want to keep it?").arg(path);
}

const char designText[] = "Design files changed. Do you want to reload?";

} // namespace

class LiteViewTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void openJudgesTheDesign_data();
    void openJudgesTheDesign();
    void openRefusesOtherFiles();
    void fileWithoutCores();
    void coresAreFixed();
    void changeBanner();
    void saving();
    void savingChecksFirst();
    void savingFails();
    void synthesisTool();
    void closing_data();
    void closing();
    void fileBanners();
    void burstAndOwnSave();
    void removedFile_data();
    void removedFile();
    void invalidFileOnReload();
    void designBanner();
    void designReloadFails();
};

void LiteViewTest::openJudgesTheDesign_data()
{
    QTest::addColumn<QByteArray>("design");
    QTest::addColumn<QString>("top");
    QTest::addColumn<QString>("said");

    const QByteArray two = "module a(input clk); endmodule\nmodule b(input clk); endmodule\n";
    const QByteArray jtag = "module top(input clk);\n  TS_JTAG u0(.tck(clk));\nendmodule\n";
    QTest::newRow("usable") << QByteArray(counterDesign) << ""
                            << "";
    QTest::newRow("usable, top named") << two << "b"
                                       << "";
    QTest::newRow("no files") << QByteArray() << ""
                              << "critical | Error | Design files are not exist. | OK*";
    QTest::newRow("syntax error") << QByteArray(faultyDesign) << ""
                                  << "dialog | Design files contain some errors.";
    QTest::newRow("no module")
        << QByteArray("// nothing\n") << ""
        << "critical | Design files contain some errors | Get no module from design. | OK*";
    QTest::newRow("wrong top")
        << QByteArray(counterDesign) << "nosuch"
        << "critical | Invalid Top Module | No module named \"nosuch\", please reset top "
           "module. | OK*";
    QTest::newRow("two tops")
        << two << ""
        << "critical | Multiple Top Module | Multiple top, please set top module. | OK*";
    QTest::newRow("TS_JTAG") << jtag << ""
                             << "critical | Error | TS_JTAG used in design conflicts with ZUB. | OK*";
}

void LiteViewTest::openJudgesTheDesign()
{
    QFETCH(QByteArray, design);
    QFETCH(QString, top);
    QFETCH(QString, said);
    Workspace work;
    if (!design.isEmpty())
        work.addDesign("design.v", design);
    work.project.setOption("TopModule", top);
    ModalDriver driver;
    QString details;
    if (!said.isEmpty())
        driver.then([&details](QDialog *dialog) {
            if (const QTextEdit *text = dialog->findChild<QTextEdit *>("textEdit"))
                details = text->toPlainText();
            dialog->findChild<QPushButton *>()->click();
        });

    const Shown shown(work.writeLite("a.zub", 1));
    QCOMPARE(driver.seen.join("\n"), said);
    QCOMPARE(shown.opened, said.isEmpty());
    QCOMPARE(shown.error, QString());
    if (said.startsWith("dialog"))
        QVERIFY2(details.contains("ERROR") && details.contains("design.v"), qPrintable(details));
}

void LiteViewTest::openRefusesOtherFiles()
{
    Workspace work;
    work.addDesign("design.v", counterDesign);
    const QString text = work.write("text.zub", "not a configuration\n");
    JEX::fillInfoForEmptyJexConfig(work.path("standard.zub"), JEX::StandardMode);
    for (const QString &file : {text, work.path("standard.zub"), work.path("missing.zub")}) {
        const Shown shown(file);
        QVERIFY(!shown.opened);
        QCOMPARE(shown.error, file + " open file failed.");
    }
}

void LiteViewTest::fileWithoutCores()
{
    Workspace work;
    work.addDesign("design.v", counterDesign);
    const Shown shown(work.writeLite("new.zub", 0));
    QVERIFY(shown.opened);
    QVERIFY(shown.view->isModified());
    QCOMPARE(shown.view->windowTitle(), QString("new.zub *"));
    QCOMPARE(shown.view->shortTitle(), QString("new.zub *"));
    QCOMPARE(shown.find<QStackedWidget>("stackedWidget")->count(), 1);
    QCOMPARE(shown.find<QComboBox>("comboBoxAo")->count(), 1);
    QCOMPARE(shown.find<QComboBox>("comboBoxAo")->currentText(), QString("AO 0"));
    QCOMPARE(shown.find<QComboBox>("comboCapAmount")->currentText(), QString("1024"));
}

void LiteViewTest::coresAreFixed()
{
    Workspace work;
    work.addDesign("design.v", counterDesign);
    const Shown shown(work.writeLite("two.zub", 2));
    QSignalSpy modified(shown.view, SIGNAL(modificationStatusChanged(bool)));
    QComboBox *cores = shown.find<QComboBox>("comboBoxAo");
    QStackedWidget *pages = shown.find<QStackedWidget>("stackedWidget");
    QWidget *page = pages->currentWidget();
    QCOMPARE(cores->itemText(0) + ", " + cores->itemText(1), QString("AO 0, AO 1"));
    QCOMPARE(cores->currentIndex(), 0);
    QCOMPARE(shown.view->windowTitle(), QString("two.zub"));
    QCOMPARE(shown.view->shortTitle(), QString("two.zub"));

    for (QPushButton *button : shown.view->findChildren<QPushButton *>())
        if (button->text() == "New" || (button->text() == "Remove" && button->parent() == shown.view))
            button->click();
    cores->setCurrentIndex(1);
    QCOMPARE(cores->count(), 2);
    QCOMPARE(pages->count(), 2);
    QCOMPARE(pages->currentWidget(), page);
    QCOMPARE(modified.size(), 0);
}

void LiteViewTest::changeBanner()
{
    Workspace work;
    work.addDesign("design.v", counterDesign);
    const Shown shown(work.writeLite("a.zub", 1));
    QVERIFY(!shown.find<QWidget>("RTLJEX__ChangedBanner"));
    QObject *record = nullptr;
    for (QObject *child : shown.view->children())
        if (child->metaObject()->indexOfSlot("showChangedBanner()") >= 0)
            record = child;
    QVERIFY2(record, "the host finds the slot by its name");
    for (int i = 0; i < 2; ++i) {
        QVERIFY(QMetaObject::invokeMethod(record, "showChangedBanner"));
        QCOMPARE(shown.view->findChildren<QWidget *>("RTLJEX__ChangedBanner").size(), 1);
        QVERIFY(shown.find<QWidget>("RTLJEX__ChangedBanner")->isVisible());
        shown.find<QPushButton>("okBtn")->click();
        QVERIFY(!shown.find<QWidget>("RTLJEX__ChangedBanner")->isVisible());
    }
}

void LiteViewTest::saving()
{
    Workspace work;
    work.addDesign("design.v", counterDesign);
    Shown shown(work.writeLite("a.zub", 1));
    QStringList told;
    connect(shown.view, &JexInserterView::modificationStatusChanged, [&](bool modified) {
        told << (modified ? "modified, " : "saved, ") + shown.view->windowTitle() + ", " +
                    shown.view->shortTitle();
    });
    QCheckBox *box = shown.find<QCheckBox>("enableInputRegCheckBox");
    box->click();
    box->click();
    box->click();
    QVERIFY(shown.view->isModified());
    QVERIFY(shown.view->save());
    QVERIFY(!shown.view->isModified());
    QCOMPARE(told, QStringList({"modified, a.zub *, a.zub *", "saved, a.zub, a.zub"}));

    const QList<JEX::AOCore_Lite *> cores =
        JEX::readJEXConfigFromXml_Lite(shown.view->file(), nullptr, nullptr);
    QCOMPARE(cores.size(), 1);
    QVERIFY(cores.first()->enableCaptureDataInputRegister);
    QCOMPARE(cores.first()->enabledCaptureSignals.size(), 1);
    QCOMPARE(cores.first()->topModuleName, QString());
    qDeleteAll(cores);
}

void LiteViewTest::savingChecksFirst()
{
    Workspace work;
    work.addDesign("design.v", counterDesign);
    Shown shown(work.writeLite("a.zub", 2));
    const QByteArray before = work.read("a.zub");
    shown.find<QLineEdit>("editSampleClock")->setText("top/nosuch");
    ModalDriver driver;
    QString details;
    driver.then([&details](QDialog *dialog) {
        QMessageBox *box = qobject_cast<QMessageBox *>(dialog);
        details = box->detailedText();
        QCOMPARE(box->escapeButton(), box->button(QMessageBox::Ok));
        QTest::keyClick(box, Qt::Key_Escape);
    });
    QVERIFY(!shown.view->save());
    QCOMPARE(driver.seen.join("\n").section(" | ", 0, 2),
             QString("critical | Error | Your settings contain some errors."));
    QCOMPARE(details, QString("Core 0: The specified sample clock does not exist"));
    QVERIFY(shown.view->isModified());
    QCOMPARE(work.read("a.zub"), before);
}

void LiteViewTest::savingFails()
{
    Workspace work;
    work.addDesign("design.v", counterDesign);
    QDir(work.dir.path()).mkdir("gone");
    Shown shown(work.writeLite("gone/a.zub", 1));
    shown.find<QCheckBox>("enableInputRegCheckBox")->click();
    QVERIFY(QDir(work.path("gone")).removeRecursively());
    ModalDriver driver;
    driver.press(QMessageBox::Ok);
    QVERIFY(!shown.view->save());
    QCOMPARE(driver.seen.join("\n"),
             QString("critical | Error | Can not save to %1 | OK*").arg(work.path("gone/a.zub")));
    QVERIFY(shown.view->isModified());
    QCOMPARE(shown.view->windowTitle(), QString("a.zub *"));
}

void LiteViewTest::synthesisTool()
{
    Workspace work;
    work.addDesign("design.v", counterDesign);
    work.project.setOption("Synthesize_tool", "Synplify");
    Shown shown(work.writeLite("a.zub", 1));
    const QByteArray before = work.read("a.zub");
    shown.find<QCheckBox>("enableInputRegCheckBox")->click();
    ModalDriver driver;
    driver.press(QMessageBox::Ok);
    QVERIFY(!shown.view->save());
    QCOMPARE(
        driver.seen.join("\n"),
        QString("critical | Error | For RTL Design, JEX is only available for TarselSynthesis. Please change "
                "Synthesis Tool to TarselSynthesis in Configurations. | OK*"));
    QCOMPARE(work.read("a.zub"), before);

    driver.press(QMessageBox::Ok);
    QVERIFY2(shown.view->close(), "closing does not ask for the tool");
    QVERIFY(work.read("a.zub") != before);

    work.project.setOption("Synthesize_tool", "synplify");
    QVERIFY(shown.view->save());
}

void LiteViewTest::closing_data()
{
    QTest::addColumn<bool>("edited");
    QTest::addColumn<bool>("valid");
    QTest::addColumn<int>("answer");
    QTest::addColumn<bool>("closed");
    QTest::addColumn<bool>("written");

    const int none = QMessageBox::NoButton, ok = QMessageBox::Ok;
    QTest::newRow("nothing to save") << false << true << none << true << false;
    QTest::newRow("ok") << true << true << ok << true << true;
    QTest::newRow("ok, but wrong") << true << false << ok << false << false;
    QTest::newRow("discard") << true << true << int(QMessageBox::Discard) << true << false;
    QTest::newRow("cancel") << true << true << int(QMessageBox::Cancel) << false << false;
}

void LiteViewTest::closing()
{
    QFETCH(bool, edited);
    QFETCH(bool, valid);
    QFETCH(int, answer);
    QFETCH(bool, written);
    Workspace work;
    work.addDesign("design.v", counterDesign);
    Shown shown(work.writeLite("a.zub", 1));
    const QByteArray before = work.read("a.zub");
    if (edited)
        shown.find<QCheckBox>("enableInputRegCheckBox")->click();
    if (!valid)
        shown.find<QLineEdit>("editSampleClock")->clear();

    ModalDriver driver;
    if (edited)
        driver.press(static_cast<QMessageBox::StandardButton>(answer));
    if (!valid)
        driver.press(QMessageBox::Ok);
    QTEST(shown.view->close(), "closed");
    QVERIFY(driver.done());
    if (edited)
        QCOMPARE(driver.seen.first(),
                 QString("question | Save | Save changes to \"%1\" ? | Cancel Discard OK*")
                     .arg(shown.view->file()));
    QCOMPARE(work.read("a.zub") != before, written);
}

// Editors and version control replace a file by a rename; each time is reported.
void LiteViewTest::fileBanners()
{
    Workspace work;
    work.addDesign("design.v", counterDesign);
    const QString file = work.writeLite("a.zub", 1);
    Shown shown(file);
    shown.find<QCheckBox>("enableInputRegCheckBox")->click();

    for (int cores = 2; cores <= 3; ++cores) {
        work.writeLite("b.zub", cores);
        QFile::remove(file);
        QVERIFY(QFile::rename(work.path("b.zub"), file));
        QTRY_COMPARE(shown.banners(), QStringList(changedText(file)));
        shown.answer("Reload");
        QCOMPARE(shown.banners(), QStringList());
        QVERIFY(shown.find<QWidget>("bannerContainer")->isHidden());
        QCOMPARE(shown.find<QStackedWidget>("stackedWidget")->count(), cores);
        QCOMPARE(shown.find<QComboBox>("comboBoxAo")->count(), cores);
        QCOMPARE(shown.find<QComboBox>("comboBoxAo")->currentIndex(), 0);
        QVERIFY2(shown.view->isModified(), "a reload keeps the mark");
        QVERIFY(!shown.find<QCheckBox>("enableInputRegCheckBox")->isChecked());
    }

    work.writeLite("a.zub", 0);
    QTRY_COMPARE(shown.banners(), QStringList(changedText(file)));
    shown.answer("Cancel");
    QCOMPARE(shown.banners(), QStringList());
    QCOMPARE(shown.find<QStackedWidget>("stackedWidget")->count(), 3);
}

void LiteViewTest::burstAndOwnSave()
{
    Workspace work;
    work.addDesign("design.v", counterDesign);
    const QString file = work.writeLite("a.zub", 1);
    Shown shown(file);
    shown.find<QCheckBox>("enableInputRegCheckBox")->click();
    QVERIFY(shown.view->save());
    QTest::qWait(800);
    QCOMPARE(shown.banners(), QStringList());

    for (int i = 0; i < 10; ++i) {
        work.write("a.zub", QByteArray(i, 'x'));
        QTest::qWait(20);
    }
    QTRY_COMPARE(shown.banners(), QStringList(changedText(file)));
    work.write("a.zub", "still more");
    QTest::qWait(800);
    QCOMPARE(shown.banners(), QStringList(changedText(file)));
}

void LiteViewTest::removedFile_data()
{
    QTest::addColumn<QString>("button");
    QTest::newRow("keep") << "Keep It";
    QTest::newRow("close") << "Close";
}

void LiteViewTest::removedFile()
{
    QFETCH(QString, button);
    Workspace work;
    work.addDesign("design.v", counterDesign);
    const QString file = work.writeLite("a.zub", 1);
    Shown shown(file), other(work.writeLite("other.zub", 1));
    shown.find<QCheckBox>("enableInputRegCheckBox")->click();
    QSignalSpy modified(shown.view, SIGNAL(modificationStatusChanged(bool)));
    QFile::remove(file);
    QTRY_COMPARE(shown.banners(), QStringList(removedText(file)));
    shown.answer(button);
    if (button == "Close") {
        QCOMPARE(modified.size(), 1);
        QVERIFY(!modified.first().first().toBool());
        QTRY_VERIFY2(!shown.container, "the container dies");
        QVERIFY(!shown.view && other.view && other.view->isVisible());
        return;
    }
    QCOMPARE(shown.banners(), QStringList());
    QVERIFY(shown.view->isModified());
    QVERIFY(shown.view->save());
    QVERIFY(QFile::exists(file));
    QFile::remove(file);
    QTRY_COMPARE(shown.banners(), QStringList(removedText(file)));
}

void LiteViewTest::invalidFileOnReload()
{
    Workspace work;
    work.addDesign("design.v", counterDesign);
    const QString file = work.writeLite("a.zub", 1);
    Shown shown(file), other(work.writeLite("other.zub", 1));
    QFile::remove(file);
    JEX::fillInfoForEmptyJexConfig(file, JEX::StandardMode);
    QTRY_COMPARE(shown.banners(), QStringList(changedText(file)));
    ModalDriver driver;
    driver.press(QMessageBox::Ok);
    shown.answer("Reload");
    QCOMPARE(driver.seen.join("\n"), QString("warning | Reload Jex | Invalid JEX file. | OK*"));
    QTRY_VERIFY(!shown.container);
    QVERIFY(other.view);
}

void LiteViewTest::designBanner()
{
    Workspace work;
    work.addDesign("design.v", counterDesign);
    Shown shown(work.writeLite("a.zub", 1));
    work.addDesign("more.v", "module leaf(input clk); endmodule\n");
    QCOMPARE(shown.banners(), QStringList(designText));
    work.project.setOption("TopModule", "top");
    work.addDesign("evenmore.v", "module leaf2(input clk); endmodule\n");
    QCOMPARE(shown.banners(), QStringList(designText));
    shown.answer("Cancel");
    QCOMPARE(shown.banners(), QStringList());

    work.project.setOption("TopModule", "");
    QCOMPARE(shown.banners(), QStringList("Top module changed. Do you want to reload?"));
    shown.answer("Cancel");

    // A net that the new design does not have is found missing by the next save.
    work.write("design.v", QByteArray(counterDesign).replace("clk", "clock"));
    work.project.setOption("TopModule", "top");
    shown.answer("Reload");
    QCOMPARE(shown.banners(), QStringList());
    ModalDriver driver;
    QString details;
    driver.then([&details](QDialog *dialog) {
        details = qobject_cast<QMessageBox *>(dialog)->detailedText();
        dialog->reject();
    });
    QVERIFY(!shown.view->save());
    QVERIFY2(details.contains("Core 0: The specified sample clock does not exist"), qPrintable(details));

    work.project.setOption("IncludePath", QStringList("inc"));
    QCOMPARE(shown.banners(), QStringList(designText));
}

void LiteViewTest::designReloadFails()
{
    Workspace work;
    work.addDesign("design.v", counterDesign);
    Shown shown(work.writeLite("a.zub", 1)), other(work.writeLite("other.zub", 1));
    shown.find<QCheckBox>("enableInputRegCheckBox")->click();
    work.write("design.v", faultyDesign);
    work.project.setOption("TopModule", "top");
    ModalDriver driver;
    driver.then([&shown](QDialog *dialog) {
        QVERIFY2(shown.view->isModified(), "nothing is given up before the message was read");
        dialog->accept();
    });
    shown.answer("Reload");
    QCOMPARE(driver.seen.join("\n"), QString("dialog | Design files contain some errors."));
    QTRY_VERIFY(!shown.container);
    QVERIFY(!shown.view && other.view && other.view->isVisible());
    QCOMPARE(other.banners(), QStringList("Top module changed. Do you want to reload?"));
}

QTEST_MAIN(LiteViewTest)
#include "tst_liteview.moc"
