// The smallest environment that the editor runs in: a window with tabs, a project and a Save entry.
//   samplehost PROJECT.jexprj FILE.zub

#include <QAction>
#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QTabWidget>
#include <QTextStream>
#include <QTimer>

#include <host/actionmanager.h>
#include <host/designmanager.h>
#include <host/editorregistry.h>
#include <host/filewizard.h>
#include <host/iview.h>
#include <host/pluginmanager.h>
#include <host/project.h>
#include <host/viewmanager.h>

namespace {

int fail(const QString &text)
{
    QTextStream(stderr) << text << '\n';
    return 1;
}

int run(const QString &projectFile, const QString &file, bool isTrial)
{
    // The editor asks for the project's sources, its top module and its device.
    Core::Project project;
    QString error;
    if (!project.load(projectFile, &error))
        return fail(error);
    Core::ProjectManager::setCurrentProject(&project);

    ExtSys::PluginManager plugins;
    if (!plugins.load(PLUGIN_FILE, &error))
        return fail(error);
    for (const QString &text : plugins.initialize())
        return fail(text);

    int result = 0;
    {
        QMainWindow window;
        window.setCentralWidget(Core::ViewManager::instance()->tabWidget());
        Core::ViewManager::instance()->setDialogParent(&window);
        window.menuBar()->addMenu("File")->addAction(
            Core::ActionManager::instance()->command("Core.Action.Save", "Save"));
        window.resize(1000, 700);
        window.show();

        const Core::EditorRegistry::Opener open = Core::EditorRegistry::editorFor(file);
        if (!open || !open(file, TE::TaskEngine::instance()->designManager()->currentDevice()))
            result = fail(file + " could not be opened.");
        for (const Core::IView *view : Core::ViewManager::instance()->views())
            QTextStream(stdout) << view->shortTitle() << '\n';
        if (!isTrial && result == 0)
            result = QApplication::exec();
    }
    // What the plug-in gave out goes before it does.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    Core::FileWizardRegistry::clear();
    Core::EditorRegistry::clear();
    plugins.shutDown();
    Core::ProjectManager::setCurrentProject(nullptr);
    return result;
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    if (words.size() < 3)
        return fail("samplehost PROJECT.jexprj FILE.zub [--trial]");
    return run(words.at(1), words.at(2), words.value(3) == "--trial");
}
