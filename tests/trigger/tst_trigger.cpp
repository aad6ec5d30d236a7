#include "model/jex/core.h"
#include "model/netlist/rtlnetlist.h"
#include "signals/signalrows.h"
#include "tests/support/netlisttext.h"
#include "tests/support/netpicker.h"
#include "tests/support/signaltext.h"
#include "tests/support/tablerow.h"
#include "trigger/expressionrules.h"
#include "trigger/muexpressiondialog.h"
#include "trigger/triggerportdialog.h"
#include "trigger/triggersingalselectdialog.h"

using namespace RTLJEX;

namespace {

void press(QWidget *dialog, const QString &name)
{
    QTest::mouseClick(dialog->findChild<QPushButton *>("btn" + name), Qt::LeftButton);
}

// The dialog of one port, open, over a small design.
struct Editor
{
    explicit Editor(const QString &items) : netlist(netlistFromText("top\n  clk\n  rst\n  d[1:0]\n"))
    {
        port.signalItems = signalsFromText(items);
        dialog.reset(new TriggerPortDialog(&port, netlist.get()));
        tree = dialog->findChild<QTreeWidget *>("treeWidget");
        dialog->show();
        tree->expandAll();
        QVERIFY(QTest::qWaitForWindowActive(dialog.get()));
    }

    JEX::TriggerPort port;
    std::unique_ptr<QUARRY::RtlNetlist> netlist;
    std::unique_ptr<TriggerPortDialog> dialog;
    QTreeWidget *tree;
};

} // namespace

class TriggerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Priority of each kind, and whether it is an operand (M), stands between two (b) or in front of one (u).
    void kindsOfTokens()
    {
        QString kinds;
        for (const char *token : {OP_OR, OP_XOR, OP_AND, OP_NOT, LEFT_BRACKET, RIGHT_BRACKET, "m15", "x", ""})
            kinds += token + QString(" %1").arg(priority(token)) + (isDigit(token) ? "M " : " ") +
                     (isOperator(token) ? "b " : "") + (isNotUnaryOp(token) ? "u " : "");
        QCOMPARE(kinds, QString("| 1 b ^ 2 b & 3 b ! 4 u ( 0 ) 0 m15 0M x 0  0 "));
    }

    void expressions()
    {
        const QList<QPair<const char *, const char *>> accepted = {
            {"M0", "M0"},
            {"! M0", "M0 !"},
            {"! ( M0 & M1 )", "M0 M1 & !"},
            {"M0 & ! M1", "M0 M1 ! &"},
            {"( M0 )", "M0"},
            {"( ( M0 | M1 ) ) ^ M12", "M0 M1 | M12 ^"},
            {"! ( ! M0 )", "M0 ! !"},
            {"M0 | M1 & M2", "M0 M1 M2 & |"},
            {"M0 & M1 | M2", "M0 M1 & M2 |"},
            {"M0 ^ M1 ^ M2", "M0 M1 ^ M2 ^"},
            {"! M0 | M1 ^ M2 & ! M3", "M0 ! M1 M2 M3 ! & ^ |"},
        };
        for (const auto &pair : accepted) {
            QCOMPARE(convertRPN(QString(pair.first).split(' ')).join(' '), QString(pair.second));
            QVERIFY2(isExpression(QString(pair.first).split(' ')), pair.first);
        }
        QVERIFY(!isExpression(QStringList()));
        // The second half would leave one result on the stack; only the rules of neighbours refuse it.
        for (const char *refused :
             {"! ! M0", "M0 M1", "M0 & | M1", "M0 &", "( )", "( ! ) M0", "& M0", "M0 ( M1 )", "( M0 ) M1",
              "( M0 & ) M1", "M0 !", "( M0 ) ( M1 ) &", "( M0 M1 & )", "( M0 ! )", "( ) M0",
              "( & M0 ( M1 ) )", "| & M0 ( M1 ) ( M2 )"})
            QVERIFY2(!isExpression(QString(refused).split(' ')), refused);
        for (const char *surplus : {"M0 )", ") M0 ( M1", "( M0 ) ) & M1"}) {
            QTest::ignoreMessage(QtDebugMsg, "bracket unmatched");
            QVERIFY2(!isExpression(QString(surplus).split(' ')), surplus);
        }
        QTest::ignoreMessage(QtDebugMsg, " bracket unmatched");
        QVERIFY(convertRPN(QString("M0 & ( M1").split(' ')).isEmpty());
    }

    // Return means OK wherever the focus is, also on the button that was clicked last.
    void buttonsAreTokens()
    {
        MuExpressionDialog dialog;
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QCOMPARE(dialog.windowTitle(), QString("Expression"));
        QLineEdit *display = dialog.findChild<QLineEdit *>("editDisplay");
        QVERIFY(display->isReadOnly());
        QCOMPARE(display->font().toString().section(',', 0, 4), QString("Courier,16,-1,5,75"));
        QCOMPARE(dialog.findChild<QPushButton *>("btnAND")->text(), QString("&&"));
        for (const char *name : {"OR", "XOR", "AND", "NOT", "LeftBracket", "RightBracket"})
            press(&dialog, name);
        for (int i = 0; i < 16; ++i)
            press(&dialog, QString("M%1").arg(i));
        QCOMPARE(display->text(), QString("|^&!()M0M1M2M3M4M5M6M7M8M9M10M11M12M13M14M15"));
        press(&dialog, "Backspace");
        QTest::mouseClick(display, Qt::LeftButton);
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Backspace);
        QVERIFY(display->text().endsWith("M12M13"));
        press(&dialog, "Clear");
        press(&dialog, "Backspace");
        QCOMPARE(display->text(), QString());
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Exclam);
        press(&dialog, "M12");
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        QCOMPARE(dialog.currentExpression(), QString("!M12"));
    }

    // Keys press buttons; an underscore is a blank, a dollar sign Return.
    void keysAreTokens_data()
    {
        textColumns("keys", "expression", "result");
        row("operators", "M0&(m3|!M2)", "M0&(M3|!M2)", "");
        row("numbers of two digits", "M12^M1|M15", "M12^M1|M15", "");
        row("a blank ends a number", "M1_5&", "M1&", "");
        row("Return ends a number", "M1$", "M1", "accepted");
        row("blanks end a number and press nothing", "_M1_&_M4_", "M1&M4", "");
        row("no such unit", "M16M20&5", "M1M2&", "");
        row("Backspace takes what is being typed", "M4M1<&", "M4&", "");
        row("a unit after the other", "M1M1M1(", "M1M1M1(", "");
    }
    void keysAreTokens()
    {
        QFETCH(QString, keys);
        MuExpressionDialog dialog;
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        press(&dialog, "Clear");
        press(&dialog, "NOT"); // the button that was clicked last
        for (const QChar key : keys) {
            const int code = key == '_' ? Qt::Key_Space : key == '$' ? Qt::Key_Return : Qt::Key_Backspace;
            if (QString("_$<").contains(key))
                QTest::keyClick(dialog.focusWidget(), Qt::Key(code));
            else
                QTest::keyClick(dialog.focusWidget(), key.toLatin1());
        }
        QTEST(dialog.currentExpression().mid(1), "expression");
        QTEST(QString(dialog.result() == QDialog::Accepted ? "accepted" : ""), "result");
    }

    // A button that Tab led to is left by typing, so that a blank presses it no more.
    void typingLeavesTheButtonWithTheFocus()
    {
        for (const char *keys : {"M1 &", "! "}) {
            MuExpressionDialog dialog;
            dialog.show();
            QVERIFY(QTest::qWaitForWindowActive(&dialog));
            QTest::keyClick(dialog.focusWidget(), Qt::Key_Space);
            QCOMPARE(dialog.currentExpression(), QString()); // nor has any the focus at first
            dialog.findChild<QPushButton *>("btnM5")->setFocus(Qt::TabFocusReason);
            for (const char *key = keys; *key; ++key)
                QTest::keyClick(dialog.focusWidget(), *key);
            QCOMPARE(dialog.currentExpression(), QString(keys).remove(' '));
        }
    }

    void keysOfUnitsThatTheModeLacks()
    {
        MuExpressionDialog dialog;
        dialog.setType(true);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QTest::keyClicks(&dialog, "M12");
        QCOMPARE(dialog.currentExpression(), QString());
        QTest::keyClicks(&dialog, "M1");
        QVERIFY2(dialog.findChild<QPushButton *>("btnM1")->isDown(), "what is typed shows");
        press(&dialog, "AND"); // the mouse ends it as well
        QTest::keyClicks(&dialog, "M1");
        leave(&dialog);
        QCOMPARE(dialog.currentExpression(), QString("M1&M1"));
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
    }

    void expressionsAreReturned()
    {
        ModalDriver driver;
        const auto run = [&](const char *buttons, bool staticMode, QDialogButtonBox::StandardButton button) {
            driver.then([=](QDialog *dialog) {
                for (const QString &name : QString(buttons).split(' '))
                    press(dialog, name);
                leave(dialog, button);
                if (dialog->isVisible())
                    leave(dialog, QDialogButtonBox::Cancel);
            });
            return MuExpressionDialog::getExpression(nullptr, staticMode);
        };
        QCOMPARE(run("M0 AND LeftBracket M15 OR NOT M2 RightBracket", false, QDialogButtonBox::Ok),
                 QString("M0&(M15|!M2)"));
        QCOMPARE(run("M9 M10 M11 M12 M13 M14 M15", true, QDialogButtonBox::Ok), QString("M9"));
        QCOMPARE(run("M9", true, QDialogButtonBox::Cancel), QString());
        QCOMPARE(driver.seen.size(), 3);
        QCOMPARE(run("M1 M2", false, QDialogButtonBox::Ok), QString());
        QCOMPARE(driver.seen.last(),
                 QString("unexpected: warning | Warning | Please input the right expression | OK"));
    }

    void bitsAreCountedOnOk()
    {
        for (int width : {63, 64}) {
            const bool fits = width == 63;
            const QString items = QString("b:w{x%1} s:clk=CLOCK").arg(QString(",x").repeated(width - 1));
            Editor editor(items);
            editor.port.signalItems = signalsFromText("s:before");
            const QString rows = rowText(editor.tree);
            ModalDriver driver;
            if (!fits)
                driver.press(QMessageBox::Ok);
            leave(editor.dialog.get());
            QCOMPARE(driver.seen.join('\n'),
                     QString(fits ? "" : "warning | Warning | Support 64 signals at most. | OK"));
            QCOMPARE(editor.dialog->isVisible(), !fits);
            QCOMPARE(rowText(editor.tree), rows);
            QCOMPARE(toText(editor.port.signalItems), fits ? items : QString("s:before"));
        }
    }

    void addsWhatIsNotThere()
    {
        const QString before("s:top/clk b:top/d[1] ~s:lost=L");
        const Editor editor(before);
        QCOMPARE(editor.dialog->windowTitle(), QString("Trigger Port"));
        QCOMPARE(editor.dialog->size(), QSize(410, 461));
        QCOMPARE(editor.tree->styleSheet(), QString("QTreeWidget::item { height: 20px;}"));
        QStringList texts;
        for (const QLabel *label : editor.dialog->findChildren<QLabel *>())
            texts << label->text();
        for (const char *name : {"btnAdd", "btnRemove"})
            texts << editor.dialog->findChild<QPushButton *>(name)->text();
        QCOMPARE(texts.join(','), QString("MSB,LSB,Add Signals,Remove"));
        ModalDriver driver;
        driver.then(pickNets("", {"top/d[1:0]"}, QDialogButtonBox::Cancel));
        press(editor.dialog.get(), "Add");
        QCOMPARE(rowNames(editor.tree), QString("top/clk top/d[1] L"));
        driver.then(pickNets("", {"top/clk", "top/rst", "top/d[1:0]", "top/d[0]"}));
        press(editor.dialog.get(), "Add");
        QCOMPARE(rowNames(editor.tree), QString("top/clk L top/d[1:0] top/rst"));
        leave(editor.dialog.get(), QDialogButtonBox::Cancel);
        QCOMPARE(toText(editor.port.signalItems), before);
        editor.dialog->accept();
        QCOMPARE(toText(editor.port.signalItems),
                 QString("s:top/clk ~s:lost=L b:top/d[1:0]{top/d[1],top/d[0]} s:top/rst"));
    }

    void removesWholeRows()
    {
        const Editor editor("s:a b:b{b1,b0} s:c s:d");
        const QPushButton *remove = editor.dialog->findChild<QPushButton *>("btnRemove");
        QVERIFY(!remove->isEnabled());
        clickRows(editor.tree, {"b1", "a"});
        QVERIFY(!remove->isEnabled());
        clickRows(editor.tree, {"b", "d"});
        press(editor.dialog.get(), "Remove");
        QCOMPARE(rowNames(editor.tree), QString("a c"));
        clickRows(editor.tree, {"c"});
        QTest::keyClick(editor.tree, Qt::Key_Delete);
        QCOMPARE(rowNames(editor.tree), QString("a"));
    }

    void renamingEndsInsideTheTree()
    {
        const Editor editor("s:a");
        clickRows(editor.tree, {"a"});
        const auto rename = [&](const char *name, Qt::Key last) {
            QTest::keyClick(editor.tree, Qt::Key_F2);
            QTest::keyClicks(QApplication::focusWidget(), name);
            QTest::keyClick(QApplication::focusWidget(), last);
            return rowNames(editor.tree);
        };
        QCOMPARE(rename("new", Qt::Key_Return), QString("new"));
        QCOMPARE(rename("other", Qt::Key_Escape), QString("new"));
        QVERIFY(editor.dialog->isVisible());
        rename("las", Qt::Key_T);
        editor.dialog->accept();
        QCOMPARE(toText(editor.port.signalItems), QString("s:a=last"));
    }

    void portsArePicked()
    {
        JEX::AoCore core(0);
        core.getTrigger(1)->signalItems = signalsFromText("s:a b:b=B{b1,b0}");
        core.getTrigger(3)->signalItems = signalsFromText("s:c s:a");
        QStringList seen;
        const auto pick = [&](const QList<int> &clicks, QDialogButtonBox::StandardButton button) {
            ModalDriver driver;
            driver.then([&](QDialog *dialog) {
                for (int box : clicks) {
                    QCheckBox *port = dialog->findChildren<QCheckBox *>().at(box);
                    port->click();
                    seen << port->text() + ": " + rowNames(dialog->findChild<QTreeWidget *>());
                }
                leave(dialog, button);
            });
            const auto picked =
                TriggerSingalSelectDialog::getSelectTriggerPort(core.triggerPorts.mid(1, 3), nullptr);
            seen << driver.seen << toText(picked);
        };
        pick({2, 0, 1, 2}, QDialogButtonBox::Ok);
        pick({0}, QDialogButtonBox::Cancel);
        pick({}, QDialogButtonBox::Ok);
        QCOMPARE(seen.join('\n'),
                 QString("Trigger Port 3: c a\nTrigger Port 1: a B c a\nTrigger Port 2: a B c a\n"
                         "Trigger Port 3: a B\ndialog | Add From Trigger\ns:a b:b=B{b1,b0}\n"
                         "Trigger Port 1: a B\ndialog | Add From Trigger\n\n"
                         "dialog | Add From Trigger\n"));
    }

    void parentsMayDieMeanwhile()
    {
        JEX::AoCore core(0);
        QPointer<QWidget> parent = new QWidget;
        ModalDriver driver;
        const auto killParent = [&](QDialog *) { delete parent.data(); };
        driver.then(killParent);
        TriggerPortDialog *dialog = new TriggerPortDialog(core.getTrigger(0), nullptr, parent);
        dialog->findChild<QPushButton *>("btnAdd")->click();
        QVERIFY(!parent);
        driver.then(killParent);
        parent = new QWidget;
        QVERIFY(TriggerSingalSelectDialog::getSelectTriggerPort(core.triggerPorts, parent).isEmpty());
        driver.then([](QDialog *expression) { leave(expression); });
        driver.then(killParent); // under the warning
        parent = new QWidget;
        QCOMPARE(MuExpressionDialog::getExpression(parent, false), QString());
        QVERIFY(!parent);
        QVERIFY(driver.done());
    }
};

QTEST_MAIN(TriggerTest)
#include "tst_trigger.moc"
