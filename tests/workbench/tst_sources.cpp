#include <sys/stat.h>

#include "host/viewmanager.h"
#include "tests/support/files.h"
#include "tests/support/modaldriver.h"
#include "tests/support/tablerow.h"
#include "workbench/shownsource.h"
#include "workbench/sourceedit.h"
#include "workbench/sourceopener.h"
#include "workbench/sourceplace.h"
#include "workbench/sourceview.h"

using namespace Workbench;

// Sources as the workbench shows them, and the user's own command in place of that.
class SourcesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup()
    {
        QVERIFY(Core::ViewManager::instance()->closeAllViews());
        QVERIFY(QTest::qWaitFor([] { return Core::ViewManager::instance()->views().isEmpty(); }));
    }

    void texts_data()
    {
        // The bytes are letters of Latin-1; in the notice %1 stands for the file.
        textColumns("bytes", "text", "notice");
        const auto latin = [](const QByteArray &bytes) {
            return QString::fromLatin1(bytes.constData(), bytes.size());
        };
        row("plain", "a\nb\n", "a\nb\n", "");
        row("line ends", latin("a\r\nb\rc\xe2\x80\xa8 d"), "a\nb c  d", "");
        row("UTF-8", latin("\xc3\xa4"), "ä", "");
        row("Latin-1", latin("\xe4\n"), "ä\n", "");
        row("long line", "x\n" + QString(9000, 'y') + "\nz", "x\n" + QString(4000, 'y') + "\nz",
            "Lines are shown up to their first 4000 letters.");
        row("binary", latin(QByteArray("a\0b", 3)), "", "%1 is a binary file, which is not shown.");
    }
    void texts()
    {
        auto [bytes, notice] = textCells("bytes", "notice");
        const Folder dir;
        const QString path = dir.write("a.v", bytes.toLatin1());
        const ShownSource source = readShownSource(path);
        QTEST(source.text, "text");
        QCOMPARE(source.notice, notice.replace("%1", path));
    }

    void nothingIsWaitedFor()
    {
        const Folder dir;
        const QString pipe = dir.path("pipe"), big = dir.write("big.v", "x");
        QCOMPARE(::mkfifo(qPrintable(pipe), 0600), 0);
        QVERIFY(QFile::resize(big, qint64(1) << 32));
        QCOMPARE(readShownSource(pipe).notice,
                 "Can not show " + pipe + ": it is a named pipe, not a regular file.");
        QVERIFY(readShownSource(big).notice.startsWith("Can not show " + big + ": "));
        QVERIFY(readShownSource(dir.path("gone")).notice.startsWith("Can not show "));
    }

    // The work grows with more than the length of a line.
    void longLinesHaveNoColours()
    {
        const Folder dir;
        const QByteArray word = "wire a; ";
        QVERIFY(!readShownSource(dir.write("a.v", word.repeated(120) + '\n' + word)).isLarge);
        QVERIFY(readShownSource(dir.write("b.v", word + '\n' + word.repeated(130) + '\n' + word)).isLarge);
        QVERIFY(readShownSource(dir.write("c.v", word + '\n' + word.repeated(130))).isLarge);
    }

    // Each line takes the widget some hundred bytes, and some time.
    void manyLines()
    {
        const Folder dir;
        const QString path = dir.write("a.v", QByteArray(8 << 20, '\n'));
        SourceView::open({path, 7});
        QCoreApplication::processEvents();
        const QString notice = current()->findChild<QLabel *>()->text();
        QVERIFY2(notice.startsWith("The first 300000 lines are shown."), qPrintable(notice));
        QCOMPARE(current()->edit()->blockCount(), 300000);
    }

    void oneTabForAFile()
    {
        const Folder dir;
        const QString a = dir.write("a.v", QByteArray("module m;\n").repeated(200)),
                      b = dir.write("b.vhd", "");
        SourceView::open({a, 150});
        SourceView::open({b, 0});
        SourceView::open({a, 20});
        auto *tabs = Core::ViewManager::instance()->tabWidget();
        QCOMPARE(tabs->count(), 2);
        QCOMPARE(tabs->tabText(tabs->currentIndex()), QString("a.v"));
        const SourceEdit *edit = current()->edit();
        QCOMPARE(edit->extraSelections().value(0).cursor.blockNumber(), 19);
        QCOMPARE(edit->textCursor().blockNumber(), 19);
        QVERIFY(edit->isReadOnly());
        // Colours of the language.
        QTRY_VERIFY(!edit->document()->firstBlock().layout()->formats().isEmpty());
    }

    void followsTheFile()
    {
        const Folder dir;
        const QString path = dir.write("a.v", "one\ntwo\n");
        SourceView::open({path, 2});
        const SourceEdit *edit = current()->edit();
        dir.write("a.v", "one\ntwo\nthree\n");
        QTRY_COMPARE(edit->toPlainText(), QString("one\ntwo\nthree\n"));
        QCOMPARE(edit->extraSelections().value(0).cursor.blockNumber(), 1);
        QVERIFY(QFile::remove(path));
        QTRY_VERIFY(current()->findChild<QLabel *>()->text().startsWith("Can not show "));
    }

    void finds()
    {
        const Folder dir;
        SourceView::open({dir.write("a.v", "wire a;\nWire b;\nwire c;\n"), 1});
        SourceView *view = current();
        Core::ViewManager::instance()->tabWidget()->show();
        QVERIFY(QTest::qWaitForWindowActive(view->window()));
        QTest::keyClick(view->edit(), Qt::Key_F, Qt::ControlModifier);
        auto *text = view->findChild<QLineEdit *>("findText");
        auto *result = view->findChild<QLabel *>("findResult");
        QTRY_VERIFY(text->hasFocus());
        QStringList lines;
        const auto note = [&lines, view, result] {
            lines << QString::number(view->edit()->textCursor().blockNumber()) + result->text();
        };
        QTest::keyClicks(text, "wire");
        note();
        for (const Qt::KeyboardModifiers keys :
             {Qt::NoModifier, Qt::NoModifier, Qt::NoModifier, Qt::ShiftModifier}) {
            QTest::keyClick(text, Qt::Key_Return, keys);
            note();
        }
        QTest::keyClicks(text, "x");
        note();
        QCOMPARE(lines.join(' '), QString("0 1 2 0Around the end 2Around the end 2Not found"));
        QTest::keyClick(text, Qt::Key_Escape);
        QTRY_VERIFY(view->edit()->hasFocus());
        QTRY_VERIFY(!text->isVisible());
    }

    void theUsersCommand()
    {
        const Folder dir;
        QSettings settings(dir.path("settings"), QSettings::IniFormat);
        QWidget window;
        SourceOpener opener(&settings, &window);
        QStringList told;
        connect(&opener, &SourceOpener::message, [&told](const QString &text) { told << text; });
        ModalDriver user;
        const auto set = [&](const QString &command, bool isRefused = false) {
            user.then([command](QDialog *dialog) {
                dialog->findChild<QLineEdit *>()->setText(command);
                dialog->accept();
            });
            if (isRefused)
                user.press(QMessageBox::Ok);
            opener.askCommand();
        };
        const QString path = dir.write("a b.v", "");
        set("touch %f.%l");
        opener.open({path, 3});
        QTRY_VERIFY(QFile::exists(path + ".3"));
        set("touch me", true); // which changes nothing
        QVERIFY(user.seen.last().contains("%f is missing"));
        opener.open({path, 4});
        QTRY_VERIFY(QFile::exists(path + ".4"));
        set("/no/such/program %f");
        opener.open({path, 5});
        QCOMPARE(told, QStringList("Can not start /no/such/program to show " + path + ":5."));
        QVERIFY(Core::ViewManager::instance()->views().isEmpty());
        set("");
        opener.open({path, 6});
        QCOMPARE(current()->path(), path);
    }

private:
    static SourceView *current()
    {
        return qobject_cast<SourceView *>(Core::ViewManager::instance()->currentView());
    }
};

QTEST_MAIN(SourcesTest)
#include "tst_sources.moc"
