#include <QAbstractButton>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QProgressDialog>
#include <QSpinBox>
#include <QStackedWidget>
#include <QTabBar>
#include <QTreeWidget>
#include <QtTest>

#include <random>

#include "check/configuration.h"
#include "host/actionmanager.h"
#include "host/viewmanager.h"
#include "plugin/jexviewmanager.h"
#include "tests/support/drawneditor.h"
#include "tests/support/tablerow.h"
#include "tests/support/workspace.h"
#include "workbench/mainwindow.h"
#include "workbench/workspace.h"

namespace {

const char design[] = "module part(input clk, input [3:0] a, output reg [3:0] y, output done);\n"
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

    QStringList last; // what was done, at most the latest

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
        if (qobject_cast<QProgressDialog *>(modal) || (modal && modal->objectName() == "ElaborationDialog"))
            return;
        if (--m_left == 0 && !popup && !modal)
            return save();
        if (popup)
            usePopup(popup);
        else if (modal)
            useDialog(modal);
        else if (once(15))
            save();
        else
            useOneOf(m_window);
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

} // namespace

// The real editor in the real window under a user without a plan: whatever was done, what was saved can be
// read back, the mark of an editor tells whether there is something to save, and pages show what the file
// holds.
class RandomUserTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { RTLJEX::JexViewManager::instance()->initialize(); }
    void cleanupTestCase()
    {
        qInfo("%d saved states were compared", m_compared);
        QVERIFY(m_compared > 0);
        RTLJEX::JexViewManager::instance()->deinit();
    }

    void survives_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<int>("seed");
        const bool isFull = qgetenv("JEX_TORTURE") == "full";
        for (int seed = 1; seed <= (isFull ? 20 : 2); ++seed) {
            QTest::newRow(qPrintable(QString("standard %1").arg(seed))) << int(JEX::StandardMode) << seed;
            QTest::newRow(qPrintable(QString("lite %1").arg(seed))) << int(JEX::LiteMode) << seed;
        }
    }

    void survives()
    {
        QFETCH(int, mode);
        QFETCH(int, seed);
        const int rounds = qgetenv("JEX_TORTURE") == "full" ? 80 : 12;
        m_folder.reset(new Folder);
        m_folder->write("top.v", design);
        m_folder->write("p.jexprj", R"({"version": 1, "files": [{"path": "top.v"}], "topModule": "top"})");
        {
            const Workspace work;
            for (const char *name : {"a.zub", "b.zub"})
                m_folder->write(name, contents(work.writeConfig(JEX::JexMode(mode), "a.zub", 2)));
        }
        Workbench::MainWindow window(nullptr);
        window.show();
        m_workspace = window.workspace();
        for (int round = 0; round < rounds; ++round) {
            if (round % 2 == 0) // most edits of this user are none that can be saved
                startAnew();
            QVERIFY(m_workspace->openFile(m_folder->path("a.zub"))); // unless it is open
            RandomUser user(view(), unsigned(seed * 1000 + round));
            if (round % 8 == 7)
                m_folder->write("a.zub", m_folder->read("b.zub")); // somebody else does
            user.act(13);
            QString fault;
            if (view() && !isRight(fault)) {
                qWarning("seed %d, round %d: %s\n%s", seed, round, qPrintable(fault),
                         qPrintable(user.last.join('\n')));
                QFAIL("see above");
            }
        }
    }

private:
    static Core::IView *view() { return Core::ViewManager::instance()->currentView(); }

    void startAnew()
    {
        if (view())
            view()->parentWidget()->close(); // which asks nobody
        m_folder->write("a.zub", m_folder->read("b.zub"));
    }

    bool isRight(QString &fault)
    {
        const bool isModified = view()->editedFile().isModified; // ends what is being typed
        if (isModified != view()->shortTitle().endsWith('*'))
            fault = "The title is " + view()->shortTitle() + ", and the file is " +
                    (isModified ? "modified." : "not modified.");
        else if (!isModified && !view()->editedFile().mark.isOutdated(view()->editedFile().path))
            fault = differenceToFile();
        return fault.isEmpty();
    }

    // Between what the editor shows and what its file says; and between the file and the same read and
    // written.
    QString differenceToFile()
    {
        ++m_compared;
        Core::IView *edited = view();
        QStringList shown = drawn(edited);
        const QByteArray saved = contents(edited->editedFile().path);
        RTLJEX::Configuration configuration;
        QString error;
        QByteArray again;
        if (!configuration.read(edited->editedFile().path, &error) || !configuration.toBytes(&again, &error))
            return error;
        if (again != saved)
            return "The file is another once it was read and written: " + again;
        if (!m_workspace->openFile(m_folder->write("copy.zub", saved)))
            return "The file cannot be opened.";
        QStringList read = drawn(view());
        if (shown.contains("implementation: REG")) { // a Lite core of registers opens with another choice
            const QRegularExpression others("^(?!(implementation|label_[38]|enableInputRegCheckBox):)");
            shown = shown.filter(others);
            read = read.filter(others);
        }
        Core::ViewManager::instance()->closeView(view());
        Core::ViewManager::instance()->showView(edited);
        for (int i = 0; i < qMax(shown.size(), read.size()); ++i) {
            if (shown.value(i) != read.value(i))
                return "It shows '" + shown.value(i) + "', and from the file comes '" + read.value(i) + "'";
        }
        return QString();
    }

    std::unique_ptr<Folder> m_folder;
    Workbench::Workspace *m_workspace = nullptr;
    int m_compared = 0;
};

QTEST_MAIN(RandomUserTest)
#include "tst_randomuser.moc"
