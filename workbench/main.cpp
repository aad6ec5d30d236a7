#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QMessageBox>
#include <QSettings>
#include <QStandardPaths>
#include <QTextStream>
#include <QTimer>

#include <csignal>
#include <cstdlib>
#include <memory>

#include "commandline/endsignals.h"
#include "elaboration/readingjob.h"
#include "host/editorregistry.h"
#include "host/filewizard.h"
#include "host/modal.h"
#include "host/pluginmanager.h"
#include "workbench/boxrecorder.h"
#include "workbench/crashnote.h"
#include "workbench/icons.h"
#include "workbench/logfile.h"
#include "workbench/mainwindow.h"
#include "workbench/recovery.h"
#include "workbench/report.h"
#include "workbench/runmenu.h"
#include "workbench/sessionend.h"
#include "workbench/startoptions.h"
#include "workbench/translations.h"
#include "workbench/workspace.h"

namespace {

using namespace Workbench;

void print(const QString &text)
{
    QTextStream(stdout) << text << '\n';
}

// Of a program that is installed, or else of one that was built only.
QString ownPlugin()
{
    const QString folder = QCoreApplication::applicationDirPath();
    const QString installed = QDir::cleanPath(folder + "/../" INSTALLED_LIBRARIES "/libRtlJEXIns.so");
    return QFile::exists(installed) ? installed : QDir::cleanPath(folder + "/../lib/libRtlJEXIns.so");
}

// Opens the window's contents and says, to whom it may concern, what went wrong.
class Start
{
public:
    Start(const StartOptions &options, MainWindow &window) : m_options(options), m_window(window) {}

    bool loadPlugins(ExtSys::PluginManager &plugins)
    {
        QString error;
        if (!plugins.load(m_options.plugin.isEmpty() ? ownPlugin() : m_options.plugin, &error))
            return tell(error);
        bool good = true;
        for (const QString &message : plugins.initialize())
            good = tell(message);
        Core::FileWizardRegistry::createFactories();
        return good;
    }

    bool openProject()
    {
        if (!namesProject(m_options))
            return true;
        if (!m_options.projectFile.isEmpty() && !m_window.workspace()->settleBackup(m_options.projectFile))
            return false;
        auto project = std::make_unique<Core::Project>();
        QStringList messages;
        const bool good = fillProject(m_options, *project, messages);
        for (const QString &message : qAsConst(messages))
            tell(message);
        if (!good && !m_options.projectFile.isEmpty() && project->filePath().isEmpty())
            return false;
        return m_window.workspace()->useProject(std::move(project)) && good;
    }

    // With a user at the screen, who may not look at the message pane or at a terminal.
    void openAll()
    {
        const bool good = openProject();
        if (!m_told.isEmpty())
            QUtil::messageBox(&m_window, QMessageBox::Warning, MainWindow::tr("Warning"), m_told.join('\n'));
        if (good)
            openEditors();
    }

    bool openEditors()
    {
        bool good = true;
        for (const QString &file : m_options.editorFiles)
            good = m_window.workspace()->openFile(QFileInfo(file).absoluteFilePath()) && good;
        return good;
    }

private:
    bool tell(const QString &message)
    {
        m_window.addMessage(message, true);
        QTextStream(stderr) << message << '\n';
        LogFile::note(message);
        m_told << message;
        return false;
    }

    const StartOptions &m_options;
    MainWindow &m_window;
    QStringList m_told; // what went wrong
};

// Everything is opened, written down and closed again, without anybody at the screen.
int runUnattended(const StartOptions &options, MainWindow &window, bool good)
{
    const BoxRecorder boxes;
    const CommandLine::EndSignals ends;
    QObject::connect(&ends, &CommandLine::EndSignals::endAsked, &QUARRY::ReadingJob::cancelAll);
    Start start(options, window);
    window.resize(1280, 800); // pictures have one size, whatever the screen
    good = start.openProject() && good;
    good = start.openEditors() && good;
    if (options.report) {
        const DesignReport report = designReport(options.editorFiles);
        print(report.lines.join('\n'));
        good = report.good && good;
    }
    for (const QString &text : boxes.texts())
        print("Message box \"" + text + "\"");
    if (!options.shot.isEmpty()) {
        QApplication::processEvents();
        const bool saved = window.grab().save(options.shot);
        print((saved ? "Picture: " : "Can not write the picture ") + options.shot);
        good = saved && good;
    }
    return good && boxes.texts().isEmpty() ? 0 : 1;
}

// As Quit does it: unsaved changes are asked about, and who cancels that stays. What else is open, such as
// the box of a reading that is cancelled here, goes without an answer.
void endProgram(MainWindow &window, CommandLine::EndSignals &ends)
{
    window.recovery()->keepNow(); // who has asked may not wait for an answer
    QUARRY::ReadingJob::cancelAll();
    QTimer *timer = new QTimer(&window);
    QObject::connect(timer, &QTimer::timeout, [timer, &window, &ends] {
        QWidget *modal = QApplication::activeModalWidget();
        const QMessageBox *box = qobject_cast<QMessageBox *>(modal);
        if (box && box->button(QMessageBox::Discard))
            return;
        if (modal)
            modal->close();
        else if (!window.isVisible() || !window.close()) {
            timer->deleteLater();
            ends.listen();
        }
    });
    timer->start(50);
}

int run(const StartOptions &options)
{
    const bool unattended = options.report || !options.shot.isEmpty();
    // Scripts read the report.
    if (options.report)
        QLocale::setDefault(QLocale::c());
    const Translations translations;
    QSettings settings("jexworkbench", "jexworkbench");
    ExtSys::PluginManager plugins;
    int result = 0;
    {
        chooseIcons();
        MainWindow window(unattended ? nullptr : &settings);
        const auto note = [](const QString &text) { LogFile::note(text); };
        QObject::connect(window.workspace(), &Workspace::message, note);
        QObject::connect(window.runMenu(), &RunMenu::message, note);
        Start start(options, window);
        const bool good = start.loadPlugins(plugins);
        window.show();
        if (unattended) {
            result = runUnattended(options, window, good);
        } else {
            CommandLine::EndSignals ends;
            QObject::connect(&ends, &CommandLine::EndSignals::endAsked, &window,
                             [&window, &ends] { endProgram(window, ends); });
            // The one folder of the user for all workbenches, which tell each other apart.
            window.attend(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + "/recovery");
            new SessionEnd(&window);
            QTimer::singleShot(0, &window, [&start, &window] {
                start.openAll();
                window.recovery()->offer();
            });
            result = QApplication::exec();
        }
    }
    // What plug-ins gave out goes before they do.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    Core::FileWizardRegistry::clear();
    Core::EditorRegistry::clear();
    plugins.shutDown();
    return result;
}

QtMessageHandler defaultHandler = nullptr;
bool isVerbose = false;

// Without the lines of the editor for its developers, and without the remark, offscreen, on every window that
// nothing can keep it from being resized.
void showMessage(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (text.contains("propagateSizeHints"))
        return;
    LogFile::note(text);
    if (type != QtDebugMsg || isVerbose)
        defaultHandler(type, context, text);
}

// The toolkit ends a program that finds no display by an abort, after some lines of its own.
void showMissingDisplay(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (type != QtFatalMsg)
        return;
    if (!text.contains("platform plugin"))
        return defaultHandler(type, context, text);
    QTextStream(stderr)
        << "jexworkbench: There is no display to show the window on. --report prints what there "
           "is to say, and --shot writes a picture; neither needs one.\n";
    std::_Exit(2);
}

// What nobody looks at needs no display.
void chooseDisplay(int argc, char *argv[])
{
    for (const char *variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        if (!qEnvironmentVariableIsEmpty(variable))
            return;
    }
    for (int i = 1; i < argc; ++i) {
        if (QByteArray(argv[i]).startsWith("--report") || QByteArray(argv[i]).startsWith("--shot"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
    }
}

// Qt has a --plugin option of its own and would take ours away, so it does not get to see it.
QStringList takePluginOption(int &argc, char *argv[])
{
    QStringList taken;
    int kept = 1;
    for (int i = 1; i < argc; ++i) {
        const QByteArray word(argv[i]);
        if (word == "--plugin" && i + 1 < argc)
            taken << "--plugin=" + QString::fromLocal8Bit(argv[++i]);
        else if (word.startsWith("--plugin="))
            taken << QString::fromLocal8Bit(word);
        else
            argv[kept++] = argv[i];
    }
    argc = kept;
    argv[argc] = nullptr;
    return taken;
}

// False, with a sentence, when there can be no log.
bool startLog(const QString &path)
{
    QString reason;
    tellOfCrashes();
    if (path.isEmpty())
        return true;
    if (!LogFile::open(path, &reason)) {
        QTextStream(stderr) << "jexworkbench: Can not log to " << path << ": " << reason << ".\n";
        return false;
    }
    LogFile::note("Started jexworkbench " WORKBENCH_VERSION ": " +
                  QCoreApplication::arguments().mid(1).join(' '));
    return true;
}

} // namespace

int main(int argc, char *argv[])
{
    // A file that may not grow any more is a sentence, not the end.
    std::signal(SIGXFSZ, SIG_IGN);
    const QStringList pluginOption = takePluginOption(argc, argv);
    chooseDisplay(argc, argv);
    defaultHandler = qInstallMessageHandler(showMissingDisplay);
    QApplication application(argc, argv);
    qInstallMessageHandler(showMessage);
    QCoreApplication::setApplicationName("jexworkbench");
    QCoreApplication::setApplicationVersion(WORKBENCH_VERSION);
    StartOptions options;
    QStringList faults;
    if (!parseCommandLine(QCoreApplication::arguments() + pluginOption, options, faults)) {
        QTextStream(stderr) << "jexworkbench: " << faults.join("\njexworkbench: ") << '\n';
        return 2;
    }
    if (options.help || options.version) {
        print(options.help ? helpText() : "jexworkbench " WORKBENCH_VERSION);
        return 0;
    }
    isVerbose = options.verbose;
    if (!startLog(options.log))
        return 2;
    const int result = run(options);
    LogFile::note(QString("Ended with %1.").arg(result));
    return result;
}
