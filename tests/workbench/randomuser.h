#pragma once

#include <QtTest>
#include <QtWidgets>

#include <random>

#include "elaboration/catchrtl.h"
#include "host/actionmanager.h"
#include "host/viewmanager.h"
#include "workbench/editmenu.h"

static const char design[] = "module part(input clk, input [3:0] a, output reg [3:0] y, output done);\n"
                             "  reg [1:0] state;\n  assign done = &state;\n"
                             "  always @(posedge clk) begin y <= a; state <= state + 1; end\nendmodule\n"
                             "module top(input clk, input [7:0] d, output [7:0] q, output done, ready);\n"
                             "  wire unused;\n  part low(clk, d[3:0], q[3:0], done);\n"
                             "  part high(clk, d[7:4], q[7:4], ready);\nendmodule\n";

// A user without a plan, who presses, types and chooses whatever is in reach: dialogs, menus and the editor.
// What he does blocks while a dialog is open, so that each step is taken from the event loop, and ordered
// before the step before it ends.
class RandomUser : public QObject
{
public:
    RandomUser(QWidget *window, unsigned seed) : m_window(window), m_random(seed) {}

    // Ends with a save and no dialog open.
    void act(int actions)
    {
        m_left = actions;
        later();
        m_loop.exec();
    }

    QStringList last;           // what was done, at most the latest
    std::function<void()> idle; // called while nothing is open

private:
    int below(int count) { return count > 0 ? int(m_random() % unsigned(count)) : 0; }
    bool once(int inSoMany) { return below(inSoMany) == 0; }

    void later()
    {
        QTimer::singleShot(0, this, [this] { step(); });
    }

    void note(const QString &what, const QWidget *where)
    {
        last << what + ' ' + where->metaObject()->className() + ' ' + where->objectName();
        if (last.size() > 25)
            last.removeFirst();
    }

    void step()
    {
        QWidget *popup = QApplication::activePopupWidget();
        QWidget *modal = QApplication::activeModalWidget();
        later(); // also at the end, when a dialog may be about to open
        if ((m_left <= 0 || !m_window) && !popup && !modal)
            return m_loop.quit();
        // A reading takes no input, also before its dialog is up. Another dialog may have been asked for
        // before.
        if (QUARRY::isCatchingRtl() && (!modal || qobject_cast<QProgressDialog *>(modal)))
            return;
        if (--m_left == 0 && !popup && !modal)
            return save();
        if (idle && !popup && !modal)
            idle();
        if (popup)
            usePopup(popup);
        else if (modal)
            useDialog(modal);
        else if (once(15))
            save();
        else if (once(12))
            changeMind();
        else
            useOneOf(m_window);
    }

    void changeMind()
    {
        const auto *menu = Core::ViewManager::instance()->dialogParent()->findChild<Workbench::EditMenu *>();
        QAction *action = once(3) ? menu->redoAction() : menu->undoAction();
        last << "takes '" + action->text() + "'";
        action->trigger();
    }

    void save()
    {
        last << "saves";
        Core::ActionManager::instance()->command("Core.Action.Save")->trigger();
    }

    void usePopup(QWidget *popup)
    {
        const QMenu *menu = qobject_cast<QMenu *>(popup);
        QList<QAction *> offered;
        for (QAction *action : menu ? menu->actions() : QList<QAction *>()) {
            if (action->isEnabled() && !action->isSeparator())
                offered << action;
        }
        if (offered.isEmpty() || once(5) || m_left < 0) {
            note("leaves", popup);
            popup->close();
            return;
        }
        QAction *chosen = offered.at(below(offered.size()));
        note("chooses " + chosen->text(), popup);
        QTest::mouseClick(popup, Qt::LeftButton, Qt::NoModifier, menu->actionGeometry(chosen).center());
    }

    void useDialog(QWidget *dialog)
    {
        if (dialog != m_dialog)
            m_patience = 3 + below(30);
        m_dialog = dialog;
        const QMessageBox *box = qobject_cast<QMessageBox *>(dialog);
        if (box)
            return press(box->buttons().at(below(box->buttons().size())));
        if (m_left > 0 && m_patience-- > 0 && !qobject_cast<QFileDialog *>(dialog))
            return useOneOf(dialog);
        note("rejects", dialog);
        static_cast<QDialog *>(dialog)->reject();
    }

    void press(QAbstractButton *button)
    {
        note("presses " + button->text(), button);
        QTest::mouseClick(button, Qt::LeftButton);
    }

    void useOneOf(QWidget *parent)
    {
        QList<QWidget *> offered;
        for (QWidget *widget : parent->findChildren<QWidget *>()) {
            const bool isUsable =
                qobject_cast<QAbstractButton *>(widget) || qobject_cast<QComboBox *>(widget) ||
                qobject_cast<QLineEdit *>(widget) || qobject_cast<QSpinBox *>(widget) ||
                qobject_cast<QAbstractItemView *>(widget) || qobject_cast<QTabBar *>(widget);
            const bool isPart = qobject_cast<QHeaderView *>(widget) ||
                                widget->parentWidget()->objectName().startsWith("qt_") ||
                                QString(widget->parentWidget()->metaObject()->className()) == "QTabBar";
            if (isUsable && !isPart && widget->isVisible() && widget->isEnabled() &&
                widget->window() == parent->window())
                offered << widget;
        }
        if (offered.isEmpty())
            return;
        QWidget *chosen = offered.at(below(offered.size()));
        if (auto *button = qobject_cast<QAbstractButton *>(chosen))
            press(button);
        else if (auto *view = qobject_cast<QAbstractItemView *>(chosen))
            useItems(view);
        else if (qobject_cast<QLineEdit *>(chosen))
            type(chosen);
        else if (auto *bar = qobject_cast<QTabBar *>(chosen))
            QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier,
                              bar->tabRect(below(bar->count())).center());
        else
            turn(chosen);
    }

    void turn(QWidget *box)
    {
        const Qt::Key keys[] = {Qt::Key_Up, Qt::Key_Down, Qt::Key_Home, Qt::Key_End};
        note("turns", box);
        QTest::keyClick(box, keys[below(4)]);
    }

    void type(QWidget *line)
    {
        note("types into", line);
        if (once(3))
            QTest::keyClick(line, Qt::Key_A, Qt::ControlModifier);
        const QString letters = "*a0dqM1:[]^$.XRF -_&|!()";
        for (int count = below(4); count > 0; --count)
            QTest::keyClicks(line, letters.mid(below(letters.size()), 1));
        if (once(4))
            QTest::keyClick(line, Qt::Key_Return);
    }

    void useItems(QAbstractItemView *view)
    {
        const Qt::KeyboardModifiers held[] = {Qt::NoModifier, Qt::ControlModifier, Qt::ShiftModifier};
        const Qt::Key keys[] = {Qt::Key_Delete, Qt::Key_F2,   Qt::Key_Up,   Qt::Key_Down,
                                Qt::Key_Right,  Qt::Key_Left, Qt::Key_Space};
        const QPoint place(8 + below(view->viewport()->width() - 8),
                           below(qMin(view->viewport()->height(), 220)));
        const int way = below(8);
        note("way " + QString::number(way) + " of items in", view);
        if (way < 3) {
            QTest::mouseClick(view->viewport(), Qt::LeftButton, held[way], place);
        } else if (way == 3) {
            QTest::mouseDClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, place);
        } else if (way == 4) {
            QTest::keyClick(view, Qt::Key_A, Qt::ControlModifier);
        } else if (way == 5) {
            QContextMenuEvent event(QContextMenuEvent::Mouse, place, view->viewport()->mapToGlobal(place));
            QApplication::sendEvent(view->viewport(), &event);
        } else {
            QTest::keyClick(view, keys[below(7)]);
        }
    }

    QPointer<QWidget> m_window;
    std::mt19937 m_random;
    QEventLoop m_loop;
    int m_left = 0;
    const QWidget *m_dialog = nullptr;
    int m_patience = 0;
};
