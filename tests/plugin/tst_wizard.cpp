#include "plugin/jexfilewizardfactory.h"
#include "plugin/jexwizard.h"
#include "tests/support/modaldriver.h"
#include "tests/support/workspace.h"

using namespace RTLJEX;

namespace {

// Title and labels of the page in view.
QString shown(const QWizard &wizard)
{
    QStringList texts(wizard.currentPage()->title());
    for (const QLabel *label : wizard.currentPage()->findChildren<QLabel *>())
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
    void pages()
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
        QRadioButton *lite = wizard.findChild<QRadioButton *>("liteRadioButton");
        QCOMPARE(shown(wizard),
                 QString("JEX Mode | Choose the mode of JEX | Create a JEX Config File | Create a "
                         "simplified version of JEX Config File(without trigger port)"));
        QCOMPARE(wizard.findChild<QRadioButton *>("stdRadioButton")->text() + " | " + lite->text(),
                 QString("Standard Mode | Lite Mode"));
        wizard.next();
        QCOMPARE(shown(wizard),
                 QString("JEX Configure File | Enter a name for your JEX configure file. | Name: | "
                         ".zub"));
        QCOMPARE(wizard.findChild<QLineEdit *>("fileLineEdit")->selectedText(), QString("fpga_project"));
        wizard.next();
        QCOMPARE(shown(wizard), QString("Summary"));
        QTextEdit *summary = wizard.currentPage()->findChild<QTextEdit *>();
        QVERIFY(summary->isReadOnly());
        QCOMPARE(summary->wordWrapMode(), QTextOption::NoWrap);
        QCOMPARE(summary->textCursor().position(), 0);
        QCOMPARE(summary->font().family(), QString("Monospace"));
        const QString text = "JEX\n    Jex Mode: %1\n    Name: /some/folder/fpga_project.zub\n";
        QCOMPARE(summary->toPlainText(), text.arg("Standard"));

        wizard.back();
        wizard.back();
        lite->click();
        wizard.next();
        wizard.next();
        QCOMPARE(summary->toPlainText(), text.arg("Lite"));
        QCOMPARE(wizard.jexMode(), int(JEX::LiteMode));
        QCOMPARE(wizard.jexConfigFile(), QString("/some/folder/fpga_project.zub"));
    }

    void names()
    {
        const Workspace work;
        JexWizard wizard("/some/folder", nullptr);
        wizard.restart();
        wizard.next();
        QLineEdit *edit = wizard.findChild<QLineEdit *>("fileLineEdit");
        QCOMPARE(edit->text(), work.project.name());
        const QList<QPair<QString, QString>> typed = {
            {"My file-1 (x)", "My file-1 (x)"}, {"a~.<>/\\|:\"*?b", "ab"}, {"", ""}};
        for (const auto &name : typed) {
            edit->clear();
            QTest::keyClicks(edit, name.first);
            QCOMPARE(edit->text(), name.second);
            QCOMPARE(wizard.button(QWizard::NextButton)->isEnabled(), !name.second.isEmpty());
        }
    }

    // The project's name is proposed as it is; what is typed or pasted then keeps to the rules.
    void namesAfterAnOddProposal()
    {
        Workspace work;
        Core::ProjectData data;
        data.name = "soc.v2";
        work.project.setData(data);
        for (const bool isPasted : {false, true}) {
            JexWizard wizard("/some/folder", nullptr);
            wizard.restart();
            wizard.next();
            QLineEdit *edit = wizard.findChild<QLineEdit *>("fileLineEdit");
            QCOMPARE(edit->selectedText(), QString("soc.v2"));
            edit->end(false);
            if (isPasted)
                edit->insert("/../:x");
            else
                QTest::keyClicks(edit, "/../:x");
            QCOMPARE(edit->text(), QString("socv2x"));
        }
    }

    void aFileThatWasNotWrittenIsNotAdded()
    {
        Workspace work;
        ModalDriver driver;
        driver.then(fill("liteRadioButton", "new"));
        JexFileWizardFactory().runWizard(nullptr, work.path("no folder"));
        QVERIFY(driver.done());
        QCOMPARE(work.project.data().files.size(), 0);
    }

    void runs()
    {
        JexFileWizardFactory factory;
        QCOMPARE(factory.id() + " | " + factory.displayName() + " | " + factory.description(),
                 QString("M.Wizard.JEX | RTL JEX Config File | Create a RTL JEX Config File."));
        Workspace work;
        ModalDriver driver;
        QWidget *window = new QWidget;
        driver.then([](QDialog *wizard) { wizard->reject(); });
        driver.then([window](QDialog *) { delete window; });
        for (int i = 0; i < 2; ++i)
            factory.runWizard(window, work.dir.path());
        QVERIFY(QDir(work.dir.path()).entryList(QDir::Files).isEmpty());

        const auto create = [&](const char *button, const QString &name) {
            driver.then(fill(button, name));
            factory.runWizard(nullptr, work.dir.path());
            return int(JEX::jexModeFromJexConfigFile(work.path(name + ".zub")));
        };
        QCOMPARE(create("stdRadioButton", "standard"), int(JEX::StandardMode));
        QCOMPARE(create("liteRadioButton", "lite"), int(JEX::LiteMode));
        Core::ProjectManager::setCurrentProject(nullptr);
        QCOMPARE(create("liteRadioButton", "alone"), int(JEX::LiteMode));
        QCOMPARE(work.project.data().files.size(), 2);
        QCOMPARE(work.project.data().files.last().path, work.path("lite.zub"));

        // A file that is there already.
        for (QMessageBox::StandardButton answer : {QMessageBox::Cancel, QMessageBox::Ok}) {
            driver.then(fill("liteRadioButton", "standard"));
            driver.press(answer);
            factory.runWizard(nullptr, work.dir.path());
            QCOMPARE(driver.seen.last(), "question | Create File | File " + work.path("standard.zub") +
                                             " already exists.\nDo you want to replace it? | Cancel* OK");
            QCOMPARE(JEX::checkJEXLiteFile(work.path("standard.zub")), answer == QMessageBox::Ok);
        }
    }
};

QTEST_MAIN(WizardTest)
#include "tst_wizard.moc"
