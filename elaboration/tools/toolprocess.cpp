#include "elaboration/tools/toolprocess.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTimer>

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

const int maxKeptBytes = 64 << 20; // a tool that writes without end must not fill the memory

int secondsOf(const ToolCall &call)
{
    return call.seconds > 0 ? qMin(call.seconds, toolTimeLimit()) : toolTimeLimit();
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
    connect(m_process.get(), SIGNAL(readyReadStandardOutput()), SLOT(readOutput()));
    connect(m_process.get(), SIGNAL(readyReadStandardError()), SLOT(readOutput()));
    connect(m_process.get(), SIGNAL(finished(int, QProcess::ExitStatus)), SLOT(noteEnd()));
    m_process->start(call.program, call.arguments, QIODevice::ReadOnly);
    if (!m_process->waitForStarted(-1)) {
        end(ToolResult::Missing, missingMessage(m_call, m_process->errorString()));
        return;
    }
    m_process->closeWriteChannel();
    QTimer *limit = new QTimer(this);
    limit->setSingleShot(true);
    connect(limit, SIGNAL(timeout()), SLOT(noteTimeLimit()));
    limit->start(secondsOf(call) * 1000);
}

ToolRun::~ToolRun()
{
    if (m_process->state() != QProcess::NotRunning)
        m_process->killGroup();
}

void ToolRun::readOutput()
{
    if (!m_process->isReadable())
        return; // both channels go into files
    m_result.output += m_process->readAllStandardOutput();
    m_result.errors += m_process->readAllStandardError();
    m_result.output.truncate(maxKeptBytes);
    m_result.errors.truncate(maxKeptBytes);
}

void ToolRun::noteEnd()
{
    readOutput();
    m_result.exitCode = m_process->exitCode();
    if (m_process->exitStatus() == QProcess::NormalExit)
        end(ToolResult::Finished, QString());
    else
        end(ToolResult::Died, diedMessage(m_call, m_result.errors));
}

void ToolRun::noteTimeLimit()
{
    if (m_process->state() == QProcess::NotRunning)
        return;
    m_process->disconnect(this);
    m_process->killGroup();
    end(ToolResult::Hung, hungMessage(m_call));
}

// Who hears of the end may delete this object, so it is told from the event loop.
void ToolRun::end(ToolResult::Outcome outcome, const QString &message)
{
    m_result.outcome = outcome;
    m_result.message = message;
    QMetaObject::invokeMethod(this, "announce", Qt::QueuedConnection);
}

void ToolRun::announce()
{
    m_isOver = true;
    Q_EMIT over();
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
