#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTextBlock>
#include <QTextEdit>

#include "views/changedbanner.h"
#include "views/messagedlg.h"
#include "views/reloadbanner.h"

using namespace RTLJEX;

Q_DECLARE_METATYPE(RTLJEX::ReloadBanner::CheckType)

class BannersTest : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void onReload() { m_heard << "reload"; }
    void onCancel() { m_heard << "cancel"; }
    void onKeep() { m_heard << "keepIt"; }
    void onClose() { m_heard << "closeIt"; }
    void onOKBtn() { m_heard << "ok"; }

private Q_SLOTS:
    void init() { m_heard.clear(); }
    void reloadBanner_data();
    void reloadBanner();
    void changedBanner();
    void messageDialog();
    void doubleClickTakesTheWholeMessage();

private:
    QStringList m_heard;
};

void BannersTest::reloadBanner_data()
{
    QTest::addColumn<ReloadBanner::CheckType>("type");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("buttons");
    QTest::addColumn<QStringList>("answers");

    QTest::newRow("changed") << ReloadBanner::Changed << "/a/b.zub"
                             << "The file '/a/b.zub' changed on disk.\nDo you want to reload?"
                             << QStringList({"Reload", "Cancel"}) << QStringList({"reload", "cancel"});
    QTest::newRow("removed") << ReloadBanner::Removed << "/a/b.zub"
                             << "The file '/a/b.zub' has been removed on disk.\nDo you still want to keep it?"
                             << QStringList({"Keep It", "Close"}) << QStringList({"keepIt", "closeIt"});
    QTest::newRow("odd name") << ReloadBanner::Removed << "/a/<b>%1 & %2.zub"
                              << "The file '/a/<b>%1 & %2.zub' has been removed on disk.\n"
                                 "Do you still want to keep it?"
                              << QStringList({"Keep It", "Close"}) << QStringList({"keepIt", "closeIt"});
}

void BannersTest::reloadBanner()
{
    QFETCH(ReloadBanner::CheckType, type);
    QFETCH(QString, file);
    ReloadBanner banner(type, file, nullptr);
    connect(&banner, SIGNAL(reload()), SLOT(onReload()));
    connect(&banner, SIGNAL(cancel()), SLOT(onCancel()));
    connect(&banner, SIGNAL(keepIt()), SLOT(onKeep()));
    connect(&banner, SIGNAL(closeIt()), SLOT(onClose()));
    banner.show();

    QLabel *label = banner.findChild<QLabel *>("labelFile");
    QTEST(label->text(), "text");
    QCOMPARE(label->textFormat(), Qt::PlainText);
    QVERIFY2(!banner.findChild<QLabel *>("label")->pixmap()->isNull(), "no icon");
    QStringList buttons;
    for (const char *name : {"btnA", "btnB"}) {
        QPushButton *button = banner.findChild<QPushButton *>(name);
        buttons << button->text();
        button->click();
    }
    QTEST(buttons, "buttons");
    QTEST(m_heard, "answers");
    QVERIFY2(banner.isVisible(), "it is its owner who hides it");

    banner.setText("Something else.");
    QCOMPARE(label->text(), QString("Something else."));
}

void BannersTest::changedBanner()
{
    QWidget parent;
    QWidget *banner = createChangedBanner(this, &parent);
    QVERIFY(banner->isHidden());
    QCOMPARE(banner->objectName(), QString("RTLJEX__ChangedBanner"));
    QCOMPARE(banner->findChild<QLabel *>("warningText")->text(), QString("Netlist File has been changed."));
    QVERIFY2(!banner->findChild<QLabel *>("warningIcon")->pixmap()->isNull(), "no icon");
    QPushButton *button = banner->findChild<QPushButton *>("okBtn");
    QCOMPARE(button->text(), QString("OK"));
    QCOMPARE(button->maximumWidth(), 32);
    button->click();
    QCOMPARE(m_heard, QStringList("ok"));
}

void BannersTest::messageDialog()
{
    MessageDlg dialog(nullptr);
    QTextEdit *text = dialog.findChild<QTextEdit *>("textEdit");
    QVERIFY(text->isReadOnly());
    QCOMPARE(text->lineWrapMode(), QTextEdit::NoWrap);

    dialog.setDetailMsg(QStringList({"ERROR: a.v:3: <b>bold</b>", "WARNING: b.v:1: %1"}));
    QCOMPARE(text->toPlainText(), QString("ERROR: a.v:3: <b>bold</b>\nWARNING: b.v:1: %1"));
    dialog.setDetailMsg(QStringList());
    QCOMPARE(text->toPlainText(), QString());

    dialog.show();
    const QList<QPushButton *> buttons = dialog.findChildren<QPushButton *>();
    QCOMPARE(buttons.size(), 1);
    buttons.first()->click();
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
}

void BannersTest::doubleClickTakesTheWholeMessage()
{
    MessageDlg dialog(nullptr);
    dialog.setDetailMsg(QStringList({"first message", "ERROR: two words"}));
    dialog.show();
    QTextEdit *text = dialog.findChild<QTextEdit *>("textEdit");
    QTextCursor second(text->document()->lastBlock());
    QTest::mouseDClick(text->viewport(), Qt::LeftButton, Qt::NoModifier, text->cursorRect(second).center());
    QCOMPARE(text->textCursor().selectedText(), QString("ERROR: two words"));
}

QTEST_MAIN(BannersTest)
#include "tst_banners.moc"
