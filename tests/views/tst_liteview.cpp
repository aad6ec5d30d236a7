#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTextEdit>

#include "tests/support/modaldriver.h"
#include "tests/support/workspace.h"
#include "tests/views/shown.h"

using namespace RTLJEX;

class LiteViewTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void openJudgesTheDesign_data();
    void openJudgesTheDesign();
    void openRefusesOtherFiles();
    void fileWithoutCores();
    void coresAreFixed();
    void sixteenCoresAtMost();
    void changeBanner();
    void saving();
    void savingChecksFirst();
    void savingFails();
    void synthesisTool();
    void closing_data();
    void closing();
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
                              << "critical | Error | Design files are not exist. | OK";
    QTest::newRow("syntax error") << QByteArray(faultyDesign) << ""
                                  << "dialog | Design files contain some errors.";
    QTest::newRow("no module")
        << QByteArray("package p;\n  localparam int x = 1;\nendpackage\n") << ""
        << "critical | Design files contain some errors | Get no module from design. | OK";
    QTest::newRow("wrong top")
        << QByteArray(counterDesign) << "nosuch"
        << "critical | Invalid Top Module | No module named \"nosuch\", please reset top "
           "module. | OK";
    QTest::newRow("two tops") << two << ""
                              << "critical | Multiple Top Module | Multiple top, please set top module. | OK";
    QTest::newRow("TS_JTAG") << jtag << ""
                             << "critical | Error | TS_JTAG used in design conflicts with ZUB. | OK";
}

void LiteViewTest::openJudgesTheDesign()
{
    QFETCH(QByteArray, design);
    QFETCH(QString, top);
    QFETCH(QString, said);
    Workspace work;
    if (!design.isEmpty())
        work.addDesign("design.sv", design);
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
        QVERIFY2(details.contains("ERROR") && details.contains("design.sv"), qPrintable(details));
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

    // The reader knows better what is wrong.
    const QString damaged = work.writeLite("damaged.zub", 1);
    work.write("damaged.zub", work.read("damaged.zub").replace("rising", "raising"));
    const Shown shown(damaged);
    QVERIFY(!shown.opened);
    QVERIFY2(shown.error.contains(damaged) && shown.error.contains("raising"), qPrintable(shown.error));
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

void LiteViewTest::sixteenCoresAtMost()
{
    Workspace work;
    work.addDesign("design.v", counterDesign);
    const Shown shown(work.writeLite("a.zub", 0));
    ModalDriver driver;
    for (int i = 1; i < 16; ++i)
        QVERIFY(shown.call("addOneAo"));
    QCOMPARE(driver.seen, QStringList());
    driver.press(QMessageBox::Ok);
    QVERIFY(shown.call("addOneAo"));
    QCOMPARE(driver.seen.join("\n"), QString("warning | Warning | Support 16 AOs at most. | OK"));
    QCOMPARE(shown.find<QStackedWidget>("stackedWidget")->count(), 16);
    QCOMPARE(shown.find<QComboBox>("comboBoxAo")->currentText(), QString("AO 15"));
}

void LiteViewTest::changeBanner()
{
    Workspace work;
    work.addDesign("design.v", counterDesign);
    const Shown shown(work.writeLite("a.zub", 1));
    QVERIFY(!shown.find<QWidget>("RTLJEX__ChangedBanner"));
    for (int i = 0; i < 2; ++i) {
        QVERIFY(shown.call("showChangedBanner"));
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
    shown.edit();
    QVERIFY(QDir(work.path("gone")).removeRecursively());
    ModalDriver driver;
    driver.press(QMessageBox::Ok);
    QVERIFY(!shown.view->save());
    QCOMPARE(driver.seen.join("\n"),
             QString("critical | Error | Can not save to %1 | OK").arg(work.path("gone/a.zub")));
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
    shown.edit();
    ModalDriver driver;
    driver.press(QMessageBox::Ok);
    QVERIFY(!shown.view->save());
    QCOMPARE(
        driver.seen.join("\n"),
        QString("critical | Error | For RTL Design, JEX is only available for TarselSynthesis. Please change "
                "Synthesis Tool to TarselSynthesis in Configurations. | OK"));
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
        shown.edit();
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

QTEST_MAIN(LiteViewTest)
#include "tst_liteview.moc"
