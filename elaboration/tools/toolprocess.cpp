#include "elaboration/tools/toolprocess.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>
#include <QRegExp>
#include <QTimer>

#include "elaboration/tools/confinement.h"
#include "elaboration/tools/scratchdir.h"
#include "elaboration/tools/toollimits.h"

#include <signal.h>
#include <sys/prctl.h>
#include <unistd.h>

namespace QUARRY {

class GroupProcess : public QProcess
{
public:
    ToolLimits limits;
    ToolRights rights = ConfinedTool;

    // The leader may be over: its group goes on as long as one is left in it. Bubblewrap is ended by its
    // child, with which goes all that is in the sandbox: killed itself, it would leave those to die some
    // time.
    void killGroup()
    {
        if (state() == Running && rights == ConfinedTool && killChildren())
            waitForFinished(1000);
        if (m_group > 0)
            ::kill(-m_group, SIGKILL);
        m_group = 0;
        if (state() == NotRunning)
            return;
        kill();
        waitForFinished(1000);
    }

    void noteStart() { m_group = pid_t(pid()); }

protected:
    void setupChildProcess() override
    {
        ::setpgid(0, 0);
        ::prctl(PR_SET_PDEATHSIG, SIGKILL); // an editor that crashes leaves no tool behind
        prepareToolProcess(limits, rights);
    }

private:
    bool killChildren() const
    {
        QFile list(QString::fromLatin1("/proc/%1/task/%1/children").arg(m_group));
        if (m_group <= 0 || !list.open(QIODevice::ReadOnly))
            return false;
        bool anyKilled = false;
        for (const QByteArray &child : list.readAll().split(' '))
            anyKilled = (child.toInt() > 0 && ::kill(child.toInt(), SIGKILL) == 0) || anyKilled;
        return anyKilled;
    }

    pid_t m_group = 0;
};

namespace {

int secondsOf(const ToolCall &call)
{
    return call.seconds > 0 ? qMin(call.seconds, toolTimeLimit()) : toolTimeLimit();
}

QString megabytes(qint64 bytes)
{
    return QString::number(bytes >> 20) + QLatin1String(" MB");
}

qint64 sizeOf(const QString &folder)
{
    qint64 bytes = 0;
    QDirIterator entries(folder, QDir::Files | QDir::Hidden | QDir::NoSymLinks, QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        entries.next();
        bytes += entries.fileInfo().size();
    }
    return bytes;
}

bool speaksOfMemory(const QByteArray &errors)
{
    for (const char *words : {"bad_alloc", "STORAGE_ERROR", "heap exhausted", "ut of memory",
                              "annot allocate", "failed to map segment"}) {
        if (errors.contains(words))
            return true;
    }
    return false;
}

QString missingMessage(const ToolCall &call, const QString &reason)
{
    return ToolRun::
        tr("ERROR: %1 could not be started (%2: %3). Install it, or let the variable %4 name the program.")
            .arg(call.name, call.program, reason, call.variable);
}

// "ERROR: GHDL did not end within 30 seconds and was stopped while it read VHDL entity uart."
QString limitMessage(const ToolCall &call, const QString &excess, const QString &remedy)
{
    if (call.subject.isEmpty())
        return ToolRun::tr("ERROR: %1 %2. %3").arg(call.name, excess, remedy);
    return ToolRun::tr("ERROR: %1 %2 while it %3 %4. %5")
        .arg(call.name, excess, ToolRun::tr(call.deed), call.subject, remedy);
}

QString hungMessage(const ToolCall &call)
{
    return limitMessage(
        call, ToolRun::tr("did not end within %1 seconds and was stopped").arg(secondsOf(call)),
        ToolRun::tr("If the design needs longer, let the variable JEX_TOOL_TIMEOUT give a larger number "
                    "of seconds."));
}

QString memoryMessage(const ToolCall &call, qint64 limit)
{
    return limitMessage(
        call, ToolRun::tr("needed more memory than the %1 that it may take").arg(megabytes(limit)),
        ToolRun::tr("Look for a range or a loop that is too large. If the design needs more, allow more "
                    "MB: under Project / Tool Memory in the workbench, with --tool-memory, or in the "
                    "variable JEX_TOOL_MEMORY."));
}

QString writtenMessage(const ToolCall &call, const QString &what, qint64 limit)
{
    return limitMessage(call, what.arg(megabytes(limit)),
                        ToolRun::tr("Look for the source that causes it by leaving files out."));
}

// The option or command of ours that a tool of another version refuses, as in
//   %Error: Invalid option: --xml-only
//   /usr/bin/ghdl-mcode: unknown command '--synth', try 'help'
QString refusedWord(const QByteArray &errors)
{
    const QRegExp refusal(QLatin1String("(^|\n)(%Error: Invalid option:|[^\n ]*: (unknown command( option)?|"
                                        "invalid option --)) '?([-\\w]+)"));
    return refusal.indexIn(QString::fromUtf8(errors)) < 0 ? QString() : refusal.cap(5);
}

QString versionMessage(const ToolCall &call, const QString &word)
{
    return ToolRun::tr("ERROR: %1 (%2) does not know %3, so it is of another version. Install Debian's "
                       "package, or let the variable %4 name another program.")
        .arg(call.name, call.program, word, call.variable);
}

QString diedMessage(const ToolCall &call, const QByteArray &errors)
{
    const QString text =
        ToolRun::tr("ERROR: %1 crashed or was killed before it finished. Read the design again; if it "
                    "happens again, look for the source that causes it by leaving files out.")
            .arg(call.name);
    return text + lastLine(errors);
}

} // namespace

ToolRun::ToolRun(const ToolCall &call) : m_call(call), m_process(new GroupProcess)
{
    const QString fault = call.runsSources ? confinementFault() : QString();
    const QString named = call.program;
    const QFileInfo program(named.contains(QLatin1Char('/')) ? named : findProgram(named));
    m_call.program = program.absoluteFilePath();
    if (!program.isFile())
        end(ToolResult::Missing, missingMessage(call, tr("there is no such file")));
    else if (!program.isExecutable())
        end(ToolResult::Missing, missingMessage(call, tr("it is not executable")));
    else if (!fault.isEmpty())
        end(ToolResult::Stopped, tr("ERROR: %1 is not run, since %2.").arg(call.name, fault));
    else
        start();
}

void ToolRun::start()
{
    m_isConfined = mayConfine();
    QProcessEnvironment environment;
    for (const QString &variable : toolEnvironment(m_call))
        environment.insert(variable.section(QLatin1Char('='), 0, 0), variable.section(QLatin1Char('='), 1));
    m_process->setProcessEnvironment(environment);
    m_process->setWorkingDirectory(m_call.workingDir);
    // What an earlier tool left there may be a link, which would be followed.
    if (!m_call.outputFile.isEmpty()) {
        QFile::remove(m_call.outputFile);
        m_process->setStandardOutputFile(m_call.outputFile);
    }
    if (!m_call.errorFile.isEmpty()) {
        QFile::remove(m_call.errorFile);
        m_process->setStandardErrorFile(m_call.errorFile);
    }
    m_process->limits.memoryBytes = toolMemoryLimit();
    m_process->limits.fileBytes = toolDiskLimit();
    m_process->limits.cpuSeconds = secondsOf(m_call) + 5; // should nobody be left to look at the clock
    connect(m_process.get(), SIGNAL(readyReadStandardOutput()), SLOT(readOutput()));
    connect(m_process.get(), SIGNAL(readyReadStandardError()), SLOT(readOutput()));
    connect(m_process.get(), SIGNAL(finished(int, QProcess::ExitStatus)), SLOT(noteEnd()));
    QStringList command = QStringList(m_call.program) + m_call.arguments;
    if (m_isConfined)
        command = confinedCommand(m_call);
    else
        m_process->rights = m_call.evaluatesSources ? ReadingTool : OwnRights;
    const QString first = command.takeFirst();
    m_process->start(first, command, QIODevice::ReadOnly);
    if (!m_process->waitForStarted(-1))
        return end(ToolResult::Missing, missingMessage(m_call, m_process->errorString()));
    m_process->noteStart();
    m_process->closeWriteChannel();
    QTimer *limit = new QTimer(this);
    limit->setSingleShot(true);
    connect(limit, SIGNAL(timeout()), SLOT(noteTimeLimit()));
    limit->start(secondsOf(m_call) * 1000);
    QTimer *watch = new QTimer(this);
    connect(watch, SIGNAL(timeout()), SLOT(measureFolder()));
    watch->start(200);
}

// Bubblewrap is there but may not work here, which is known from now on.
void ToolRun::startAgain()
{
    qDeleteAll(findChildren<QTimer *>());
    m_process->disconnect(this);
    m_process.release()->deleteLater(); // it calls us
    m_process.reset(new GroupProcess);
    m_result = ToolResult();
    start();
}

ToolRun::~ToolRun()
{
    m_process->disconnect(this);
    m_process->killGroup();
}

void ToolRun::readOutput()
{
    if (!m_process->isReadable())
        return; // both channels go into files
    m_result.output += m_process->readAllStandardOutput();
    m_result.errors += m_process->readAllStandardError();
    if (m_result.output.size() > maxToolMessageBytes || m_result.errors.size() > maxToolMessageBytes)
        stop(writtenMessage(m_call, tr("wrote more than %1 of messages and was stopped"),
                            maxToolMessageBytes));
}

void ToolRun::measureFolder()
{
    if (!m_call.writableFolder.isEmpty() && sizeOf(m_call.writableFolder) > m_process->limits.fileBytes)
        stop(writtenMessage(m_call, tr("wrote more than %1 of files and was stopped"),
                            m_process->limits.fileBytes));
}

void ToolRun::noteTimeLimit()
{
    if (m_process->state() != QProcess::NotRunning)
        stop(hungMessage(m_call));
}

void ToolRun::stop(const QString &reason)
{
    m_process->disconnect(this);
    m_process->killGroup();
    m_result.output.clear();
    m_result.errors.clear();
    end(ToolResult::Stopped, reason);
}

// Where a tool that could not have what it needed says so.
QByteArray ToolRun::lastWords() const
{
    const int length = 4096;
    QFile file(m_call.errorFile);
    if (m_call.errorFile.isEmpty() || !file.open(QIODevice::ReadOnly))
        return m_result.errors.right(length);
    file.seek(qMax(qint64(0), file.size() - length));
    return file.read(length);
}

void ToolRun::noteEnd()
{
    readOutput();
    if (m_isEnding)
        return;
    // What a tool started goes with it.
    m_process->killGroup();
    m_result.exitCode = m_process->exitCode();
    const bool isRefused = m_isConfined && lastWords().startsWith("bwrap: ");
    if (isRefused && !confinementFault().isEmpty() && !m_call.runsSources)
        return startAgain();
    if (m_isConfined && !isRefused)
        noteConfinedRun();
    const QString fullDisk = fullDiskMessage(
        m_call.outputFile.isEmpty() ? m_call.writableFolder : QFileInfo(m_call.outputFile).path());
    if (!fullDisk.isEmpty())
        return end(ToolResult::NoRoom, fullDisk);
    const bool isGood = m_process->exitStatus() == QProcess::NormalExit;
    // Bubblewrap, and a shell, tell of a tool that a signal ended by 128 and its number.
    const int signalNumber = isGood ? m_result.exitCode - 128 : 0;
    if (isRefused)
        end(ToolResult::Missing,
            missingMessage(m_call, QString::fromLocal8Bit(lastWords().mid(7)).trimmed()));
    else if (signalNumber == SIGXFSZ)
        end(ToolResult::Stopped, writtenMessage(m_call, tr("wrote more than %1 of files and was stopped"),
                                                m_process->limits.fileBytes));
    else if ((m_result.exitCode != 0 || !isGood) && speaksOfMemory(lastWords()))
        end(ToolResult::Stopped, memoryMessage(m_call, m_process->limits.memoryBytes));
    else if (!isGood || (signalNumber > 0 && signalNumber <= SIGSYS))
        end(ToolResult::Died, diedMessage(m_call, m_result.errors));
    else if (m_result.exitCode != 0 && !refusedWord(lastWords()).isEmpty())
        end(ToolResult::Missing, versionMessage(m_call, refusedWord(lastWords())));
    else
        end(ToolResult::Finished, QString());
}

// Who hears of the end may delete this object, so it is told from the event loop.
void ToolRun::end(ToolResult::Outcome outcome, const QString &message)
{
    m_isEnding = true;
    m_result.outcome = outcome;
    m_result.message = message;
    QMetaObject::invokeMethod(this, "announce", Qt::QueuedConnection);
}

void ToolRun::announce()
{
    m_isOver = true;
    Q_EMIT over();
}

QString lastLine(const QByteArray &output)
{
    const int longest = 300;
    const QString text = QString::fromUtf8(output.right(longest)).trimmed();
    QString line = text.section(QLatin1Char('\n'), -1).simplified();
    line.remove(QRegExp(QLatin1String("[^\\x0020-\\xfffc]")));
    return line.isEmpty() ? QString() : QLatin1String(" Its last words: ") + line;
}

QByteArray programPath()
{
    const QByteArray path = qgetenv("PATH");
    return path.isEmpty() ? QByteArray("/usr/local/bin:/usr/bin:/bin") : path;
}

QString findProgram(const QString &name)
{
    const QStringList folders = QFile::decodeName(programPath()).split(QLatin1Char(':'));
    for (const QString &folder : folders) {
        const QFileInfo file(QDir(folder).absoluteFilePath(name));
        if (!folder.isEmpty() && file.isFile() && file.isExecutable())
            return file.absoluteFilePath();
    }
    return QString();
}

QString findTool(const char *variable, const QStringList &names)
{
    const QString named = QFile::decodeName(qgetenv(variable));
    if (!named.isEmpty())
        return named;
    for (const QString &name : names) {
        const QString program = findProgram(name);
        if (!program.isEmpty())
            return program;
    }
    return names.value(0);
}

} // namespace QUARRY
