#pragma once

#include "host/actionmanager.h"
#include "host/viewmanager.h"
#include "plugin/jexviewmanager.h"
#include "tests/support/menudriver.h"
#include "tests/support/messagelist.h"
#include "tests/support/modaldriver.h"
#include "tests/support/workspace.h"
#include "workbench/mainwindow.h"
#include "workbench/messagepane.h"
#include "workbench/workspace.h"

// The base of tests with the real editors in the real window, on a project "p.jexprj" with the source
// "top.v".
class EditorWindowTest : public QObject
{
    Q_OBJECT

protected Q_SLOTS:
    void initTestCase()
    {
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        RTLJEX::JexViewManager::instance()->initialize();
    }
    void cleanupTestCase() { RTLJEX::JexViewManager::instance()->deinit(); }

    void cleanup() { m_window.reset(); }

protected:
    static QByteArray project(const QByteArray &top = "top")
    {
        return QByteArray(R"({"version": 1, "files": [{"path": "top.v"}], "topModule": "TOP"})")
            .replace("TOP", top);
    }

    void makeProject(const QByteArray &design = counterDesign)
    {
        m_dir.reset(new Folder);
        m_dir->write("top.v", design);
        m_dir->write("p.jexprj", project());
    }
    // Gives the path.
    QString writeConfig(JEX::JexMode mode, const QString &name, int cores = 1) const
    {
        const Workspace work;
        return m_dir->write(name, contents(work.writeConfig(mode, name, cores)));
    }
    void showWindow(QSettings *settings = nullptr)
    {
        m_window.reset(); // before the next one takes the tabs
        m_window.reset(new Workbench::MainWindow(settings));
        m_window->show();
        m_workspace = m_window->workspace();
    }

    static Core::IView *view() { return Core::ViewManager::instance()->currentView(); }
    static QAction *save() { return Core::ActionManager::instance()->command("Core.Action.Save"); }
    QString pane() const { return messageText(*m_window); }

    // Of a menu, by its text without the letter that is underlined.
    QAction *action(const QString &text) const
    {
        return named(text, m_window->menuBar()->findChildren<QAction *>());
    }

    std::unique_ptr<Folder> m_dir;
    std::unique_ptr<Workbench::MainWindow> m_window;
    Workbench::Workspace *m_workspace = nullptr;
};
