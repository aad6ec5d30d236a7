#pragma once

#include <QtTest>

#include <QAction>
#include <QLabel>
#include <QMainWindow>
#include <QPluginLoader>
#include <QPushButton>
#include <QStackedWidget>
#include <QTabBar>
#include <QTabWidget>
#include <QTreeWidget>
#include <memory>

#include "host/actionmanager.h"
#include "host/designmanager.h"
#include "host/editorregistry.h"
#include "host/filewizard.h"
#include "host/iplugin.h"
#include "host/iview.h"
#include "host/viewmanager.h"
#include "tests/support/configtext.h"
#include "tests/support/menudriver.h"
#include "tests/support/netpicker.h"
#include "tests/support/workspace.h"

// The editor as it ships: the plug-in's library in a host with a window, on a design that is elaborated
// from its sources, worked with mouse and keys. The base of the tests that do so.
class EditorSession : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_window.reset(new QMainWindow);
        m_window->setCentralWidget(Core::ViewManager::instance()->tabWidget());
        m_window->resize(1200, 760);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
        Core::ViewManager::instance()->setDialogParent(m_window.get());

        QVERIFY(!Core::EditorRegistry::editorFor("a.zub"));
        m_loader.setFileName(PLUGIN_FILE);
        m_plugin = qobject_cast<ExtSys::IPlugin *>(m_loader.instance());
        QVERIFY2(m_plugin, qPrintable(m_loader.errorString()));
        QCOMPARE(m_loader.metaData().value("IID").toString(), QString(EXTSYS_IPLUGIN_IID));
        QVERIFY(m_plugin->initialize());
        m_plugin->extensionsInitialized();
        Core::FileWizardRegistry::createFactories();
        QCOMPARE(Core::FileWizardRegistry::factories().size(), 1);
    }

    void cleanupTestCase()
    {
        Core::FileWizardRegistry::clear();
        Core::EditorRegistry::clear();
        m_window.reset();
        m_plugin->shutDown();
        QVERIFY(m_loader.unload());
    }

    void init()
    {
        m_user.seen.clear();
        m_work.reset(new Workspace);
    }

    void cleanup()
    {
        if (view()) { // a test that failed half-way
            m_user.press(QMessageBox::Discard);
            closeTab();
        }
        m_work.reset();
        QVERIFY(m_user.done());
    }

protected:
    QString path(const char *name) const { return m_work->path(name); }
    bool open(const char *name)
    {
        return Core::EditorRegistry::editorFor(name)(
            path(name), TE::TaskEngine::instance()->designManager()->currentDevice());
    }
    static Core::IView *view() { return Core::ViewManager::instance()->currentView(); }
    static void closeTab() { Core::ViewManager::instance()->closeView(view()); }
    static QAction *save() { return Core::ActionManager::instance()->command("Core.Action.Save"); }
    // The page in view comes first: pages and the view around them have controls of the same names.
    template <class Widget>
    static Widget *find(const char *name)
    {
        QStackedWidget *pages = view()->findChild<QStackedWidget *>("stackedWidget");
        Widget *found = pages->currentWidget()->findChild<Widget *>(name);
        return found ? found : view()->findChild<Widget *>(name);
    }
    static void showTab(int index)
    {
        QTabBar *tabs = find<QStackedWidget>("stackedWidget")->currentWidget()->findChild<QTabBar *>();
        QTest::mouseClick(tabs, Qt::LeftButton, Qt::NoModifier, tabs->tabRect(index).center());
    }
    static void press(const char *button) { QTest::mouseClick(find<QPushButton>(button), Qt::LeftButton); }

    void pick(const char *opener, const QString &search, const QStringList &names)
    {
        m_user.then(pickNets(search, names));
        press(opener);
    }

    static QStringList rows(QTreeWidget *tree)
    {
        QStringList lines;
        for (int i = 0; i < tree->topLevelItemCount(); ++i) {
            const QTreeWidgetItem *row = tree->topLevelItem(i);
            QStringList members;
            for (int k = 0; k < row->childCount(); ++k)
                members << row->child(k)->text(0).section('/', -1);
            lines << row->text(0) + (members.isEmpty() ? "" : " = " + members.join(' '));
        }
        return lines;
    }

    // By the right button, as the window system tells of it, on the first selected row.
    void chooseFromMenu(QTreeWidget *tree, const QString &text)
    {
        const QPoint onRow = tree->visualItemRect(tree->selectedItems().first()).center();
        const QStringList offered = useMenu(
            [&] {
                QTest::mouseClick(m_window->windowHandle(), Qt::RightButton, Qt::NoModifier,
                                  tree->viewport()->mapTo(m_window.get(), onRow));
            },
            text);
        QVERIFY2(offered.contains(text), qPrintable(offered.join(", ")));
    }

    std::unique_ptr<QMainWindow> m_window;
    std::unique_ptr<Workspace> m_work;
    QPluginLoader m_loader;
    ExtSys::IPlugin *m_plugin = nullptr;
    ModalDriver m_user;
};
