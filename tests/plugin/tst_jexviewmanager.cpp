#include "host/actionmanager.h"
#include "host/iview.h"
#include "host/viewmanager.h"
#include "plugin/jexinserterview.h"
#include "plugin/jexviewmanager.h"
#include "tests/support/modaldriver.h"
#include "tests/support/workspace.h"

using namespace RTLJEX;

class JexViewManagerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(JexViewManager::instance());
        QVERIFY(JexViewManager::instance()->jexViews().isEmpty());
        JexViewManager::instance()->initialize();
        m_save = Core::ActionManager::instance()->command("Core.Action.Save", "&Save");
        Core::ViewManager::instance()->tabWidget()->show();
    }

    void init()
    {
        m_work.reset(new Workspace);
        m_work->addDesign("design.v", counterDesign);
        QCOMPARE(save(), QString("&Save off"));
    }

    void cleanup()
    {
        ModalDriver driver;
        for (int i = 0; i < 2; ++i)
            driver.press(QMessageBox::Discard);
        QVERIFY(Core::ViewManager::instance()->closeAllViews());
        QCOMPARE(views(), QString());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        m_work.reset();
    }

    void cleanupTestCase()
    {
        JexViewManager::instance()->deinit();
        QCOMPARE(save(), QString("&Save off"));
        delete Core::ViewManager::instance()->tabWidget();
    }

    void opensOneViewPerFile()
    {
        const QString a = m_work->writeLite("a.zub", 1);
        m_work->writeLite("b.zub", 1);
        JEX::fillInfoForEmptyJexConfig(m_work->path("A.zub"), JEX::StandardMode);
        for (const char *name : {"a.zub", "b.zub", "A.zub"})
            QVERIFY2(open(m_work->path(name)), name);
        QCOMPARE(views(), QString("a.zub, b.zub, A.zub *"));
        JexInserterView *first = JexViewManager::instance()->jexViews().first();
        QCOMPARE(first->device, QString("part-1"));
        QCOMPARE(Core::ViewManager::instance()->views().size(), 3);
        QVERIFY(Core::ViewManager::instance()->currentView() != first);

        // The same file by other spellings, which is not read again.
        m_work->write("a.zub", "broken");
        const QString here = QDir::currentPath();
        QVERIFY(QDir::setCurrent(m_work->dir.path()));
        for (const QString &spelling :
             {a, m_work->path("./a.zub"), QString("a.zub"), QString("./x/../a.zub")}) {
            QVERIFY(open(m_work->path("b.zub")));
            QVERIFY(open(spelling));
            QCOMPARE(Core::ViewManager::instance()->currentView(), static_cast<Core::IView *>(first));
        }
        QVERIFY(!JexViewManager::instance()->closeInserterView("c.zub"));
        QVERIFY(JexViewManager::instance()->closeInserterView("./a.zub"));
        QDir::setCurrent(here);
        QCOMPARE(views(), QString("b.zub, A.zub *"));
    }

    void refusals()
    {
        const QString file = m_work->path("<b>%1.zub");
        const auto damaged = [&](JEX::JexMode mode) {
            JEX::fillInfoForEmptyJexConfig(file, mode);
            return m_work->read("<b>%1.zub") + '<';
        };
        const QByteArray texts[] = {"text\n", damaged(JEX::StandardMode), damaged(JEX::LiteMode), ""};
        ModalDriver driver;
        for (const QByteArray &text : texts) {
            if (text.isEmpty())
                QVERIFY(QFile::remove(file));
            else
                m_work->write("<b>%1.zub", text);
            driver.press(QMessageBox::Ok);
            QVERIFY(!open(file));
            QCOMPARE(views(), QString());
            QVERIFY(Core::ViewManager::instance()->views().isEmpty());
        }
        const QString invalid = "critical | Error | Can not open FILE:\nInvalid JEX file. | OK";
        const QString failed = "critical | Error | FILE open file failed. | OK";
        QCOMPARE(driver.seen.replaceInStrings(file, "FILE"), QStringList({invalid, failed, failed, invalid}));
    }

    void openingTwiceAtOnce()
    {
        const QString file = m_work->writeLite("a.zub", 1);
        m_work->project.setOption("TopModule", "nosuch");
        ModalDriver driver;
        bool second = false;
        driver.then([&](QDialog *dialog) {
            second = open(file);
            dialog->accept();
        });
        QVERIFY(!open(file));
        QVERIFY2(second, "it is on its way already");
        QCOMPARE(driver.seen.size(), 1);

        m_work->project.setOption("TopModule", "");
        QVERIFY(open(file));
        QCOMPARE(views(), QString("a.zub"));
    }

    void saveFollowsTheActiveView()
    {
        for (const char *name : {"a.zub", "b.zub"})
            QVERIFY2(open(m_work->writeLite(name, 1)), name);
        JexInserterView *a = JexViewManager::instance()->jexViews().at(0);
        JexInserterView *b = JexViewManager::instance()->jexViews().at(1);
        Core::ViewManager *host = Core::ViewManager::instance();
        QCOMPARE(save(), QString("&Save \"b.zub\" off"));
        edit(b);
        QCOMPARE(save(), QString("&Save \"b.zub *\" on"));
        QCOMPARE(m_save->toolTip(), QString("Save \"b.zub *\""));
        edit(a);
        QCOMPARE(save(), QString("&Save \"b.zub *\" on"));
        m_save->trigger();
        QCOMPARE(save(), QString("&Save \"b.zub\" off"));
        m_work->write("b.zub", "somebody else's");
        JexViewManager::instance()->onActSave(); // there is nothing to be saved
        QCOMPARE(m_work->read("b.zub"), QByteArray("somebody else's"));
        host->showView(a);
        QCOMPARE(save(), QString("&Save \"a.zub *\" on"));

        Core::IView *foreign = new Core::IView(nullptr);
        host->showView(foreign);
        QCOMPARE(save(), QString("&Save off"));
        edit(a);
        JexViewManager::instance()->onInserterViewModified(true);
        QVERIFY(!m_save->isEnabled());
        QVERIFY(host->closeView(b));
        QVERIFY(!m_save->isEnabled());
        host->showView(a);
        QCOMPARE(save(), QString("&Save \"a.zub *\" on"));
        host->closeView(foreign);
        QCOMPARE(save(), QString("&Save \"a.zub *\" on"));
    }

    void closedAndDyingViews()
    {
        for (const char *name : {"a.zub", "b.zub", "c.zub"})
            QVERIFY(open(m_work->writeLite(name, 1)));
        const QPointer<JexInserterView> a = JexViewManager::instance()->jexViews().at(0);
        const QPointer<JexInserterView> b = JexViewManager::instance()->jexViews().at(1);
        const QPointer<JexInserterView> c = JexViewManager::instance()->jexViews().at(2);
        edit(c);
        edit(b);

        delete b;
        QCOMPARE(views(), QString("a.zub, c.zub *"));
        QCOMPARE(save(), QString("&Save \"c.zub *\" on"));
        // What the host says about the current view takes effect at once, whatever else is open.
        JexViewManager::instance()->onInserterViewClosed(c);
        QCOMPARE(views(), QString("a.zub"));
        QVERIFY(!m_save->isEnabled());
        JexViewManager::instance()->onCurrentViewChanged(a);
        QCOMPARE(save(), QString("&Save \"a.zub\" off"));
    }

private:
    bool open(const QString &file)
    {
        DEV::DeviceArg device;
        device.series = "series";
        device.partNumber = "part-1";
        return JexViewManager::instance()->openInserterView(file, device);
    }
    // "a.zub *, b.zub" in order of opening, as the manager and the host see them
    static QString views()
    {
        QStringList titles;
        for (JexInserterView *view : JexViewManager::instance()->jexViews())
            titles << view->windowTitle();
        return titles.join(", ");
    }
    // What the Save command shows.
    QString save() const { return m_save->text() + (m_save->isEnabled() ? " on" : " off"); }
    static void edit(Core::IView *view) { view->findChild<QCheckBox *>("enableInputRegCheckBox")->click(); }

    QScopedPointer<Workspace> m_work;
    QAction *m_save = nullptr;
};

QTEST_MAIN(JexViewManagerTest)
#include "tst_jexviewmanager.moc"
