#include "elaboration/tools/toolprocess.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>

#include "elaboration/reading/elaborationprogress.h"

#ifdef Q_OS_UNIX
#include <signal.h>
#include <unistd.h>
#endif
#ifdef Q_OS_LINUX
#include <sys/prctl.h>
#endif

namespace QUARRY {

class GroupProcess : public QProcess
{
public:
    void killGroup()
    {
#ifdef Q_OS_UNIX
        const Q_PID leader = pid();
        if (leader > 0)
            ::kill(-leader, SIGKILL);
#endif
        kill();
        waitForFinished(1000);
    }

protected:
    void setupChildProcess() override
    {
#ifdef Q_OS_UNIX
        ::setpgid(0, 0);
#endif
#ifdef Q_OS_LINUX
        ::prctl(PR_SET_PDEATHSIG, SIGKILL); // an editor that crashes leaves no tool behind
#endif
    }
};

namespace {

const int pollMs = 20;
const int maxKeptBytes = 64 << 20; // a tool that writes without end must not fill the memory

void drain(QProcess &process, ToolResult &result)
{
    if (!process.isReadable())
        return; // both channels go into files
    result.output += process.readAllStandardOutput();
    result.errors += process.readAllStandardError();
    result.output.truncate(maxKeptBytes);
    result.errors.truncate(maxKeptBytes);
}

QString missingMessage(const ToolCall &call, const QString &reason)
{
    return QString::fromLatin1("ERROR: ") + call.name + QLatin1String(" could not be started (") +
           call.program + QLatin1String(": ") + reason +
           QLatin1String("). Install it, or let the variable ") + call.variable +
           QLatin1String(" name the program.");
}

QString hungMessage(const ToolCall &call)
{
    return QString::fromLatin1("ERROR: ") + call.name + QLatin1String(" did not end within ") +
           QString::number(toolTimeLimit()) +
           QLatin1String(" seconds and was stopped. If the design needs longer, set JEX_TOOL_TIMEOUT to a "
                         "larger number of seconds.");
}

QString diedMessage(const ToolCall &call, const QByteArray &errors)
{
    const QString said = QString::fromLocal8Bit(errors).trimmed().section(QLatin1Char('\n'), -1);
    QString text = QString::fromLatin1("ERROR: ") + call.name +
                   QLatin1String(" crashed or was killed before it finished. Read the design again; if it "
                                 "happens again, look for the source that causes it by leaving files out.");
    if (!said.isEmpty())
        text += QLatin1String(" Its last words: ") + said;
    return text;
}

} // namespace

ToolRun::ToolRun(const ToolCall &call) : m_call(call), m_process(new GroupProcess)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    if (!call.environment.isEmpty())
        environment.insert(call.environment.section(QLatin1Char('='), 0, 0),
                           call.environment.section(QLatin1Char('='), 1));
    m_process->setProcessEnvironment(environment);
    m_process->setWorkingDirectory(call.workingDir);
    if (!call.outputFile.isEmpty())
        m_process->setStandardOutputFile(call.outputFile);
    if (!call.errorFile.isEmpty())
        m_process->setStandardErrorFile(call.errorFile);
    m_clock.start();
    m_process->start(call.program, call.arguments, QIODevice::ReadOnly);
    if (m_process->waitForStarted(-1))
        m_process->closeWriteChannel();
}

ToolRun::~ToolRun()
{
    if (m_process->state() != QProcess::NotRunning)
        m_process->killGroup();
}

ToolResult ToolRun::wait(ElaborationProgress *progress)
{
    ToolResult result;
    if (m_process->error() == QProcess::FailedToStart) {
        result.outcome = ToolResult::Missing;
        result.message = missingMessage(m_call, m_process->errorString());
        return result;
    }
    const int seconds = m_call.seconds > 0 ? qMin(m_call.seconds, toolTimeLimit()) : toolTimeLimit();
    const qint64 limitMs = qint64(seconds) * 1000;
    // cancelled() may run the event loop, in which the process can end too: ask for its state each time.
    while (m_process->state() != QProcess::NotRunning && !m_process->waitForFinished(pollMs)) {
        drain(*m_process, result);
        if (progress && progress->cancelled())
            result.outcome = ToolResult::Cancelled;
        else if (m_clock.elapsed() > limitMs)
            result.outcome = ToolResult::Hung;
        else
            continue;
        m_process->killGroup();
        break;
    }
    drain(*m_process, result);
    if (result.outcome == ToolResult::Hung)
        result.message = hungMessage(m_call);
    if (result.outcome != ToolResult::Finished)
        return result;
    result.exitCode = m_process->exitCode();
    if (m_process->exitStatus() != QProcess::NormalExit) {
        result.outcome = ToolResult::Died;
        result.message = diedMessage(m_call, result.errors);
    }
    return result;
}

ToolResult runTool(const ToolCall &call, ElaborationProgress *progress)
{
    if (progress && progress->cancelled()) {
        ToolResult result;
        result.outcome = ToolResult::Cancelled;
        return result;
    }
    return ToolRun(call).wait(progress);
}

int toolTimeLimit()
{
    bool ok = false;
    const int seconds = qgetenv("JEX_TOOL_TIMEOUT").toInt(&ok);
    return ok && seconds > 0 ? seconds : 600;
}

QString findTool(const char *variable, const QStringList &names)
{
    const QString named = QString::fromLocal8Bit(qgetenv(variable));
    if (!named.isEmpty())
        return named;
    const QStringList folders = QString::fromLocal8Bit(qgetenv("PATH")).split(QLatin1Char(':'));
    for (const QString &name : names) {
        for (const QString &folder : folders) {
            const QFileInfo file(QDir(folder).absoluteFilePath(name));
            if (file.isFile() && file.isExecutable())
                return file.absoluteFilePath();
        }
    }
    return names.value(0);
}

} // namespace QUARRY
