#include <QtTest>

#include <QLabel>
#include <QPushButton>
#include <QTextBlock>
#include <QTextEdit>

#include "views/messagedlg.h"
#include "views/reloadbanner.h"

using namespace RTLJEX;

class BannersTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void reloadBanner()
    {
        const struct
        {
            ReloadBanner::CheckType type;
            const char *text, *buttons;
            QList<int> heard; // reload, cancel, keepIt, closeIt
        } rows[] = {{ReloadBanner::Changed,
                     "The file '%' changed on disk.\nDo you want to reload?",
                     "Reload | Cancel",
                     {1, 1, 0, 0}},
                    {ReloadBanner::Removed,
                     "The file '%' has been removed on disk.\nDo you still want to keep it?",
                     "Keep It | Close",
                     {0, 0, 1, 1}}};
        const QString file = "/a/<b>%1 & 2.zub";
        for (const auto &row : rows) {
            ReloadBanner banner(row.type, file, nullptr);
            banner.show();
            QSignalSpy reload(&banner, &ReloadBanner::reload), cancel(&banner, &ReloadBanner::cancel),
                keep(&banner, &ReloadBanner::keepIt), close(&banner, &ReloadBanner::closeIt);
            QPushButton *a = banner.findChild<QPushButton *>("btnA"),
                        *b = banner.findChild<QPushButton *>("btnB");
            QLabel *label = banner.findChild<QLabel *>("labelFile");
            QCOMPARE(label->text(), QString(row.text).replace("%", file));
            QCOMPARE(label->textFormat(), Qt::PlainText);
            QVERIFY2(!banner.findChild<QLabel *>("label")->pixmap()->isNull(), "no icon");
            QCOMPARE(a->text() + " | " + b->text(), QString(row.buttons));
            a->click();
            b->click();
            QCOMPARE(QList<int>({reload.size(), cancel.size(), keep.size(), close.size()}), row.heard);
            QVERIFY2(banner.isVisible(), "it is its owner who hides it");
        }
    }

    void messageDialog()
    {
        MessageDlg dialog(nullptr);
        QTextEdit *text = dialog.findChild<QTextEdit *>("textEdit");
        QVERIFY(text->isReadOnly());
        QCOMPARE(text->lineWrapMode(), QTextEdit::NoWrap);
        dialog.setDetailMsg(QStringList());
        QCOMPARE(text->toPlainText(), QString());
        dialog.setDetailMsg(QStringList({"ERROR: a.v:3: <b>bold</b>", "WARNING: b.v:1: %1"}));
        QCOMPARE(text->toPlainText(), QString("ERROR: a.v:3: <b>bold</b>\nWARNING: b.v:1: %1"));

        dialog.show();
        const QTextCursor second(text->document()->lastBlock());
        QTest::mouseDClick(text->viewport(), Qt::LeftButton, Qt::NoModifier,
                           text->cursorRect(second).center());
        QCOMPARE(text->textCursor().selectedText(), QString("WARNING: b.v:1: %1"));
        dialog.findChild<QPushButton *>()->click();
        QVERIFY(!dialog.isVisible() && dialog.result() == QDialog::Accepted);
    }
};

QTEST_MAIN(BannersTest)
#include "tst_banners.moc"
