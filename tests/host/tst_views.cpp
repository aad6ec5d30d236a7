#include <QtWidgets>

#include "host/actionmanager.h"
#include "host/iview.h"
#include "host/viewmanager.h"
#include "tests/support/tablerow.h"

using Core::ActionManager;
using Core::ViewManager;

namespace {

QStringList happened;

class TestView : public Core::IView
{
public:
    explicit TestView(const QString &name, bool refuses = false) : m_refuses(refuses)
    {
        setObjectName(name);
        setWindowTitle("/full/" + name);
        setShortTitle(name);
    }
    ~TestView() override { happened << "~" + objectName(); }
    void onActivated() override { happen("on"); }
    void onDeactivated() override { happen("off"); }

    QString closesWhen; // "on" or "off"
    Core::IView *closed = this;

protected:
    void closeEvent(QCloseEvent *event) override
    {
        happened << "ask " + objectName();
        event->setAccepted(!m_refuses);
    }

private:
    void happen(const QString &what)
    {
        happened << what + " " + objectName();
        if (what == closesWhen)
            closed->parentWidget()->close();
    }

    bool m_refuses;
};

} // namespace

class ViewsTest : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void noteActive(Core::IView *view)
    {
        happened << "active " + (view ? view->objectName() : QString("none"));
    }
    void noteClosed(Core::IView *view) { happened << "closed " + view->objectName(); }

private Q_SLOTS:
    void init()
    {
        m_window = new QMainWindow;
        m_tabs = ViewManager::instance()->tabWidget();
        m_window->setCentralWidget(m_tabs);
        m_window->show();
        ViewManager::instance()->disconnect(this);
        connect(ViewManager::instance(), SIGNAL(viewActiveted(Core::IView *)),
                SLOT(noteActive(Core::IView *)));
        connect(ViewManager::instance(), SIGNAL(viewClosed(Core::IView *)), SLOT(noteClosed(Core::IView *)));
        for (const char *name : {"a", "b", "c"})
            ViewManager::instance()->showView(new TestView(name, *name == 'c'));
        happened.clear();
    }
    void cleanup()
    {
        delete m_window;
        QCOMPARE(ViewManager::instance()->views().size(), 0);
    }

    void showing()
    {
        QCOMPARE(m_tabs->count(), 3);
        QCOMPARE(view("a")->parentWidget(), m_tabs->widget(0));
        ViewManager::instance()->showView(view("a"));
        ViewManager::instance()->showView(view("a"));
        m_tabs->setCurrentIndex(1);
        QCOMPARE(happened.join(", "), QString("off c, on a, active a, off a, on b, active b"));
        QCOMPARE(ViewManager::instance()->dialogParent(), m_window);
        view("b")->setShortTitle("b & <i>c</i> *");
        view("b")->setWindowTitle("<i>b</i> *");
        QCOMPARE(m_tabs->tabText(1), QString("b && <i>c</i> *"));
        QVERIFY(!m_tabs->tabToolTip(1).contains("<i>b"));
    }

    void closing_data()
    {
        textColumns("expected");
        row("tab a", "ask a, closed a, ~a"); // the user closes one in the background
        row("show b, tab b", "ask b, closed b, on c, active c, ~b");
        row("tab c", "ask c"); // which refuses
        row("self c", "closed c, on b, active b, ~c");
        row("self a", "closed a, ~a");
        row("self c, self b, self a",
            "closed c, on b, active b, closed b, on a, active a, closed a, active none, ~c, ~b, ~a");
        row("kill c", "~c, on b, active b");
        row("show a, all", "ask b, closed b, ask c, ~b");
    }
    void closing()
    {
        for (const QString &step : QString(QTest::currentDataTag()).split(", ")) {
            Core::IView *target = view(step.section(' ', 1));
            if (step.startsWith("show")) {
                ViewManager::instance()->showView(target);
                happened.clear();
            } else if (step.startsWith("tab")) {
                Q_EMIT m_tabs->tabCloseRequested(m_tabs->indexOf(target->parentWidget()));
            } else if (step.startsWith("self")) {
                target->parentWidget()->setAttribute(Qt::WA_DeleteOnClose);
                QVERIFY(target->parentWidget()->close());
            } else if (step.startsWith("kill")) {
                delete target;
            } else {
                QVERIFY(!ViewManager::instance()->closeAllViews());
            }
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QTEST(happened.join(", "), "expected");
        QCOMPARE(m_tabs->count(), ViewManager::instance()->views().size());
    }

    // Views that close a view, themselves too, when they are told who is active.
    void closingInBetween_data()
    {
        textColumns("expected"); // of showing a; c is active before
        row("a on a", "off c, on a, closed a, on b, active b");
        row("c off c", "off c, closed c, on a, active a");
        row("c off a", "off c, closed a, on b, active b");
        row("a on b", "off c, on a, closed b, active a");
    }
    void closingInBetween()
    {
        const QStringList words = QString(QTest::currentDataTag()).split(' ');
        TestView *acting = static_cast<TestView *>(view(words[0]));
        acting->closesWhen = words[1];
        acting->closed = view(words[2]);
        ViewManager::instance()->showView(view("a"));
        QTEST(happened.join(", "), "expected");
        QVERIFY(!ViewManager::instance()->views().contains(acting->closed));
        QCOMPARE(ViewManager::instance()->currentView()->objectName(),
                 happened.last().section(' ', 1)); // as reported
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void showingTheActiveViewLeavesTheFocus()
    {
        QWidget inside(view("c"));
        inside.setFocusPolicy(Qt::StrongFocus);
        inside.show();
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window));
        inside.setFocus();
        ViewManager::instance()->showView(view("c"));
        QVERIFY(inside.hasFocus());
        ViewManager::instance()->showView(view("a"));
        QVERIFY(!inside.hasFocus());
    }

    void commandsFollowTheActiveContext()
    {
        ViewManager *views = ViewManager::instance();
        QAction *command = ActionManager::instance()->command("Test.Save", "&Save");
        views->registerContext(view("a"), "ctx", true);
        QAction *own = new QAction("&Save \"a\"", this);
        int triggered = 0;
        connect(own, &QAction::triggered, this, [&triggered] { ++triggered; });
        ActionManager::registerAction(own, "Test.Save", "ctx");
        QCOMPARE(shown(command), QString("&Save off"));
        views->showView(view("a"));
        QCOMPARE(shown(command), QString("&Save \"a\" on"));
        command->trigger();
        own->setEnabled(false);
        QCOMPARE(shown(command), QString("&Save \"a\" off"));
        delete own;
        command->trigger();
        QCOMPARE(shown(command), QString("&Save off"));
        QCOMPARE(triggered, 1);
    }

    void imagesAreThere()
    {
        for (const char *path : {":/fpgaprj/image/warning.png", ":/netlist/image/magnifier.png",
                                 ":/netlist/image/module.png", ":/utils/image/attention.png"})
            QVERIFY2(QImage(path).size() == QSize(32, 32), path);
    }

private:
    Core::IView *view(const QString &name)
    {
        for (Core::IView *view : ViewManager::instance()->views()) {
            if (view->objectName() == name)
                return view;
        }
        return nullptr;
    }

    static QString shown(const QAction *command)
    {
        return command->text() + (command->isEnabled() ? " on" : " off");
    }

    QMainWindow *m_window = nullptr;
    QTabWidget *m_tabs = nullptr;
};

QTEST_MAIN(ViewsTest)
#include "tst_views.moc"
