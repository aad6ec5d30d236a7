#include "model/quarry/toolprocess.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>

#include "model/quarry/elaboration.h"

#ifdef Q_OS_UNIX
#include <signal.h>
#include <unistd.h>
#endif
#ifdef Q_OS_LINUX
#include <sys/prctl.h>
#endif

namespace QUARRY {
namespace {

const int pollMs = 20;
const int maxKeptBytes = 64 << 20; // a tool that writes without end must not fill the memory

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

void drain(QProcess &process, ToolResult &result)
{
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

void waitForEnd(GroupProcess &process, const ToolCall &call, ElaborationProgress *progress,
                ToolResult &result)
{
    QElapsedTimer clock;
    clock.start();
    const int seconds = call.seconds > 0 ? qMin(call.seconds, toolTimeLimit()) : toolTimeLimit();
    const qint64 limitMs = qint64(seconds) * 1000;
    // cancelled() may run the event loop, in which the process can end too: ask for its state each time.
    while (process.state() != QProcess::NotRunning && !process.waitForFinished(pollMs)) {
        drain(process, result);
        if (progress && progress->cancelled())
            result.outcome = ToolResult::Cancelled;
        else if (clock.elapsed() > limitMs)
            result.outcome = ToolResult::Hung;
        else
            continue;
        process.killGroup();
        break;
    }
    drain(process, result);
    if (result.outcome == ToolResult::Hung)
        result.message = hungMessage(call);
    if (result.outcome != ToolResult::Finished)
        return;
    result.exitCode = process.exitCode();
    if (process.exitStatus() != QProcess::NormalExit) {
        result.outcome = ToolResult::Died;
        result.message = diedMessage(call, result.errors);
    }
}

} // namespace

ToolResult runTool(const ToolCall &call, ElaborationProgress *progress)
{
    ToolResult result;
    if (progress && progress->cancelled()) {
        result.outcome = ToolResult::Cancelled;
        return result;
    }
    GroupProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    if (!call.environment.isEmpty())
        environment.insert(call.environment.section(QLatin1Char('='), 0, 0),
                           call.environment.section(QLatin1Char('='), 1));
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(call.workingDir);
    if (!call.outputFile.isEmpty())
        process.setStandardOutputFile(call.outputFile);
    if (!call.errorFile.isEmpty())
        process.setStandardErrorFile(call.errorFile);
    process.start(call.program, call.arguments, QIODevice::ReadOnly);
    if (!process.waitForStarted(-1)) {
        result.outcome = ToolResult::Missing;
        result.message = missingMessage(call, process.errorString());
        return result;
    }
    process.closeWriteChannel();
    waitForEnd(process, call, progress, result);
    return result;
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
