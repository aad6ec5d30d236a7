#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTextEdit>

#include "plugin/jexfilewizardfactory.h"
#include "plugin/jexwizard.h"
#include "tests/support/modaldriver.h"
#include "tests/support/workspace.h"

using namespace RTLJEX;

namespace {

QString labels(const QWidget *page)
{
    QStringList texts;
    for (const QLabel *label : page->findChildren<QLabel *>())
        texts << label->text();
    return texts.join(" | ");
}

// Plays a user who goes through all pages.
ModalDriver::Step fill(const char *mode, const QString &name)
{
    return [mode, name](QDialog *dialog) {
        JexWizard *wizard = qobject_cast<JexWizard *>(dialog);
        wizard->findChild<QRadioButton *>(mode)->click();
        wizard->button(QWizard::NextButton)->click();
        QLineEdit *edit = wizard->findChild<QLineEdit *>("fileLineEdit");
        edit->clear();
        QTest::keyClicks(edit, name);
        wizard->button(QWizard::NextButton)->click();
        if (wizard->nextId() == -1)
            wizard->button(QWizard::FinishButton)->click();
        else
            wizard->reject();
    };
}

} // namespace

class WizardTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pages();
    void proposedName();
    void names_data();
    void names();
    void runs_data();
    void runs();
    void existingFile();
    void parentDies();
};

void WizardTest::pages()
{
    JexWizard wizard("/some/folder", nullptr);
    QCOMPARE(wizard.windowTitle(), QString("New RTL JEX Wizard"));
    QVERIFY(!(wizard.windowFlags() & Qt::WindowContextHelpButtonHint));
    QCOMPARE(wizard.wizardStyle(), QWizard::ClassicStyle);
    QVERIFY(wizard.testOption(QWizard::NoBackButtonOnStartPage));
    QCOMPARE(wizard.sizeHint(), QSize(650, 400));
    QCOMPARE(wizard.jexConfigFile(), QString());
    QCOMPARE(wizard.jexMode(), 0);

    wizard.restart();
    QCOMPARE(wizard.currentPage()->title(), QString("JEX Mode"));
    QCOMPARE(labels(wizard.currentPage()),
             QString("Choose the mode of JEX | Create a JEX Config File | Create a simplified version of JEX "
                     "Config File(without trigger port)"));
    QRadioButton *standard = wizard.findChild<QRadioButton *>("stdRadioButton");
    QRadioButton *lite = wizard.findChild<QRadioButton *>("liteRadioButton");
    QCOMPARE(standard->text() + " | " + lite->text(), QString("Standard Mode | Lite Mode"));
    QVERIFY(standard->isChecked());

    wizard.next();
    QCOMPARE(wizard.currentPage()->title(), QString("JEX Configure File"));
    QCOMPARE(labels(wizard.currentPage()),
             QString("Enter a name for your JEX configure file. | Name: | .zub"));
    QCOMPARE(wizard.findChild<QLineEdit *>("fileLineEdit")->selectedText(), QString("fpga_project"));

    wizard.next();
    QCOMPARE(wizard.currentPage()->title(), QString("Summary"));
    QTextEdit *summary = wizard.currentPage()->findChild<QTextEdit *>();
    QVERIFY(summary->isReadOnly());
    QCOMPARE(summary->wordWrapMode(), QTextOption::NoWrap);
    QCOMPARE(summary->toPlainText(),
             QString("JEX\n    Jex Mode: Standard\n    Name: /some/folder/fpga_project.zub\n"));
    QCOMPARE(summary->textCursor().position(), 0);
    QCOMPARE(summary->font().family(), QString("Monospace"));

    wizard.back();
    wizard.back();
    lite->click();
    wizard.next();
    wizard.next();
    QCOMPARE(summary->toPlainText(),
             QString("JEX\n    Jex Mode: Lite\n    Name: /some/folder/fpga_project.zub\n"));
    QCOMPARE(wizard.jexMode(), 10088);
    QCOMPARE(wizard.jexConfigFile(), QString("/some/folder/fpga_project.zub"));
}

void WizardTest::proposedName()
{
    const Workspace work;
    const JexWizard wizard("/some/folder", nullptr);
    QCOMPARE(wizard.findChild<QLineEdit *>("fileLineEdit")->text(), work.project.name());
}

void WizardTest::names_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("entered");

    QTest::newRow("any") << "My file-1 (x)"
                         << "My file-1 (x)";
    QTest::newRow("what cannot be typed") << "a~.<>/\\|:\"*?b"
                                          << "ab";
    QTest::newRow("nothing") << ""
                             << "";
}

void WizardTest::names()
{
    QFETCH(QString, typed);
    QFETCH(QString, entered);
    JexWizard wizard("/some/folder", nullptr);
    wizard.restart();
    wizard.next();
    QLineEdit *edit = wizard.findChild<QLineEdit *>("fileLineEdit");
    edit->clear();
    QTest::keyClicks(edit, typed);
    QCOMPARE(edit->text(), entered);
    QCOMPARE(wizard.button(QWizard::NextButton)->isEnabled(), !entered.isEmpty());
}

void WizardTest::runs_data()
{
    QTest::addColumn<QByteArray>("radioButton");
    QTest::addColumn<bool>("withProject");
    QTest::addColumn<int>("mode");

    QTest::newRow("standard") << QByteArray("stdRadioButton") << true << int(JEX::StandardMode);
    QTest::newRow("lite") << QByteArray("liteRadioButton") << true << int(JEX::LiteMode);
    QTest::newRow("no project") << QByteArray("liteRadioButton") << false << int(JEX::LiteMode);
}

void WizardTest::runs()
{
    QFETCH(QByteArray, radioButton);
    QFETCH(bool, withProject);
    Workspace work;
    if (!withProject)
        Core::ProjectManager::setCurrentProject(nullptr);
    JexFileWizardFactory factory;
    ModalDriver driver;

    driver.then([](QDialog *wizard) { wizard->reject(); });
    factory.runWizard(nullptr, work.dir.path());
    QVERIFY(QDir(work.dir.path()).entryList(QDir::Files).isEmpty());

    driver.then(fill(radioButton, "new"));
    factory.runWizard(nullptr, work.dir.path());
    QTEST(int(JEX::jexModeFromJexConfigFile(work.path("new.zub"))), "mode");
    QCOMPARE(work.project.data().files.size(), withProject ? 1 : 0);
    if (withProject)
        QCOMPARE(work.project.data().files.first().path, work.path("new.zub"));
}

void WizardTest::existingFile()
{
    Workspace work;
    const QString file = work.writeLite("old.zub", 2);
    const QByteArray before = work.read("old.zub");
    JexFileWizardFactory factory;
    const QString question =
        QString("question | Create File | File %1 already exists.\nDo you want to replace it?"
                " | Cancel* OK")
            .arg(file);

    ModalDriver driver;
    driver.then(fill("liteRadioButton", "old"));
    driver.press(QMessageBox::Cancel);
    factory.runWizard(nullptr, work.dir.path());
    QCOMPARE(driver.seen.last(), question);
    QCOMPARE(work.read("old.zub"), before);

    driver.then(fill("liteRadioButton", "old"));
    driver.press(QMessageBox::Ok);
    factory.runWizard(nullptr, work.dir.path());
    QCOMPARE(driver.seen.last(), question);
    QVERIFY(JEX::readJEXConfigFromXml_Lite(file, nullptr, nullptr).isEmpty());
    QVERIFY(JEX::checkJEXLiteFile(file));
}

void WizardTest::parentDies()
{
    Workspace work;
    QWidget *window = new QWidget;
    ModalDriver driver;
    driver.then([window](QDialog *) { delete window; });
    JexFileWizardFactory().runWizard(window, work.dir.path());
    QVERIFY(QDir(work.dir.path()).entryList(QDir::Files).isEmpty());
}

QTEST_MAIN(WizardTest)
#include "tst_wizard.moc"
