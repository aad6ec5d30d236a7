#include "elaboration/tools/confinement.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QProcess>

#include "elaboration/tools/toolprocess.h"

#include <errno.h>
#include <fcntl.h>
#include <linux/audit.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <signal.h>
#include <stddef.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace QUARRY {
namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(QUARRY::Confinement)
};

const int filterDescriptor = 199; // any that QProcess does not use in the child for itself
const int maxProcesses = 64;

// The first lines of a filter of system calls: those in the numbers of another architecture end the tool.
#if defined(__x86_64__)
#define JEX_FILTER_HEAD                                                                                      \
    BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, arch)),                                        \
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, AUDIT_ARCH_X86_64, 1, 0),                                        \
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_KILL_PROCESS),                                                 \
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),                                      \
        BPF_JUMP(BPF_JMP | BPF_JGE | BPF_K, 0x40000000, 0, 1),                                               \
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_KILL_PROCESS)
#elif defined(__aarch64__)
#define JEX_FILTER_HEAD                                                                                      \
    BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, arch)),                                        \
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, AUDIT_ARCH_AARCH64, 1, 0),                                       \
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_KILL_PROCESS),                                                 \
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr))
#else
#define JEX_FILTER_HEAD BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr))
#endif
#define JEX_REFUSE(call)                                                                                     \
    BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, __NR_##call, 0, 1),                                                  \
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EACCES)
#define JEX_REFUSE_FLAGS(call, argument, flags)                                                              \
    BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, __NR_##call, 0, 4),                                                  \
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, args[argument])),                          \
        BPF_JUMP(BPF_JMP | BPF_JSET | BPF_K, flags, 0, 1),                                                   \
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EACCES), BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW)

// The socket file of a service, such as the user's message bus, would be a way out of a file system that only
// cannot be written; so no socket can be made.
const sock_filter noSockets[] = {
    JEX_FILTER_HEAD,
    JEX_REFUSE(socket),
    JEX_REFUSE(io_uring_setup),
    BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
};

// Without namespaces: nothing can be written that is not open.
const sock_filter noWriting[] = {
    JEX_FILTER_HEAD,
    JEX_REFUSE(socket),
    JEX_REFUSE(io_uring_setup),
    JEX_REFUSE(openat2),
    JEX_REFUSE(truncate),
    JEX_REFUSE(unlinkat),
    JEX_REFUSE(renameat2),
    JEX_REFUSE(mkdirat),
    JEX_REFUSE(linkat),
    JEX_REFUSE(symlinkat),
    JEX_REFUSE(mknodat),
    JEX_REFUSE(fchmodat),
    JEX_REFUSE(fchownat),
    JEX_REFUSE(fchmod),
    JEX_REFUSE(fchown),
    JEX_REFUSE(ftruncate),
    JEX_REFUSE(utimensat),
    JEX_REFUSE(setxattr),
    JEX_REFUSE(lsetxattr),
    JEX_REFUSE(fsetxattr),
    JEX_REFUSE(kill),
    JEX_REFUSE(ptrace),
    JEX_REFUSE(process_vm_writev),
#ifdef __NR_open
    JEX_REFUSE(creat),
    JEX_REFUSE(unlink),
    JEX_REFUSE(rmdir),
    JEX_REFUSE(rename),
    JEX_REFUSE(renameat),
    JEX_REFUSE(mkdir),
    JEX_REFUSE(link),
    JEX_REFUSE(symlink),
    JEX_REFUSE(mknod),
    JEX_REFUSE(chmod),
    JEX_REFUSE(chown),
    JEX_REFUSE(lchown),
    JEX_REFUSE_FLAGS(open, 1, O_WRONLY | O_RDWR | O_CREAT | O_TRUNC),
#endif
    JEX_REFUSE_FLAGS(openat, 2, O_WRONLY | O_RDWR | O_CREAT | O_TRUNC),
    BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
};

QString bubblewrap()
{
    return findProgram(QLatin1String("bwrap"));
}

QStringList wrapping(const QString &writable, const QString &workingDir)
{
    QStringList words;
    words << QLatin1String("--unshare-all") << QLatin1String("--unshare-user")
          << QLatin1String("--disable-userns") << QLatin1String("--die-with-parent")
          << QLatin1String("--new-session") << QLatin1String("--cap-drop") << QLatin1String("ALL");
    words << QLatin1String("--ro-bind") << QLatin1String("/") << QLatin1String("/");
    words << QLatin1String("--tmpfs") << QLatin1String("/dev") << QLatin1String("--dev-bind")
          << QLatin1String("/dev/null") << QLatin1String("/dev/null");
    words << QLatin1String("--proc") << QLatin1String("/proc");
    if (!writable.isEmpty())
        words << QLatin1String("--bind") << writable << writable;
    return words << QLatin1String("--remount-ro") << QLatin1String("/dev") << QLatin1String("--chdir")
                 << workingDir << QLatin1String("--seccomp") << QString::number(filterDescriptor);
}

void setLimit(int resource, qint64 value)
{
    if (value < 0)
        return;
    const rlimit limit = {rlim_t(value), rlim_t(value)};
    setrlimit(__rlimit_resource_t(resource), &limit);
}

class TrialProcess : public QProcess
{
protected:
    void setupChildProcess() override { prepareToolProcess(ToolLimits(), ConfinedTool); }
};

QString findFault()
{
    const QString program = bubblewrap();
    if (program.isEmpty())
        return Texts::tr("bubblewrap is not installed");
    TrialProcess trial;
    trial.start(program, wrapping(QString(), QLatin1String("/"))
                             << QLatin1String("--") << QLatin1String("/bin/true"));
    if (!trial.waitForStarted())
        return Texts::tr("%1 does not start").arg(program);
    const bool isOver = trial.waitForFinished(5000);
    if (isOver && trial.exitStatus() == QProcess::NormalExit && trial.exitCode() == 0)
        return QString();
    QString said = QString::fromLocal8Bit(trial.readAllStandardError()).trimmed();
    said.chop(said.endsWith(QLatin1Char('.')) ? 1 : 0); // it ends our sentence
    trial.kill();
    trial.waitForFinished(1000);
    return Texts::tr("this system does not let bubblewrap work") +
           (said.isEmpty() ? QString() : QLatin1String(": ") + said.section(QLatin1Char('\n'), -1));
}

} // namespace

namespace {

struct Confinement
{
    enum Knowledge { Unknown, Works, Fails };
    QString program;
    Knowledge knowledge = Unknown;
    QString fault;
};

// By the program, so that one that is installed meanwhile is found.
Confinement &confinement()
{
    static Confinement known;
    const QString program = bubblewrap();
    if (known.program != program || program.isEmpty()) {
        known = Confinement();
        known.program = program;
    }
    return known;
}

} // namespace

QString confinementFault()
{
    Confinement &known = confinement();
    if (known.knowledge == Confinement::Unknown) {
        known.fault = findFault();
        known.knowledge = known.fault.isEmpty() ? Confinement::Works : Confinement::Fails;
    }
    return known.fault;
}

bool mayConfine()
{
    const Confinement &known = confinement();
    return !known.program.isEmpty() && known.knowledge != Confinement::Fails;
}

void noteConfinedRun()
{
    if (confinement().knowledge == Confinement::Unknown)
        confinement().knowledge = Confinement::Works;
}

QStringList confinedCommand(const ToolCall &call)
{
    QStringList words(bubblewrap());
    words << wrapping(call.writableFolder, call.workingDir) << QLatin1String("--clearenv");
    for (const QString &variable : toolEnvironment(call))
        words << QLatin1String("--setenv") << variable.section(QLatin1Char('='), 0, 0)
              << variable.section(QLatin1Char('='), 1);
    words << QLatin1String("--");
    // The kernel counts them in the new namespace, so the limit is set from inside. A tool that only reads
    // starts none.
    const bool mayStartMore = call.runsSources || call.evaluatesSources;
    const QString limiter = mayStartMore ? findProgram(QLatin1String("prlimit")) : QString();
    if (!limiter.isEmpty())
        words << limiter << QLatin1String("--nproc=") + QString::number(maxProcesses);
    return words << call.program << call.arguments;
}

QStringList toolEnvironment(const ToolCall &call)
{
    QStringList variables;
    variables << QLatin1String("PATH=") + QFile::decodeName(programPath());
    for (const char *name : {"VERILATOR_ROOT", "GHDL_PREFIX", "LD_LIBRARY_PATH"}) {
        const QByteArray value = qgetenv(name);
        if (!value.isEmpty())
            variables << QLatin1String(name) + QLatin1Char('=') + QFile::decodeName(value);
    }
    variables << QLatin1String("LC_ALL=C.UTF-8");
    if (!call.writableFolder.isEmpty())
        variables << QLatin1String("TMPDIR=") + call.writableFolder;
    if (!call.environment.isEmpty())
        variables << call.environment;
    return variables;
}

void prepareToolProcess(const ToolLimits &limits, ToolRights rights)
{
    signal(SIGPIPE, SIG_DFL); // the program itself may ignore both
    signal(SIGXFSZ, SIG_DFL);
    setLimit(RLIMIT_CORE, 0);
    setLimit(RLIMIT_CPU, limits.cpuSeconds);
    setLimit(RLIMIT_AS, limits.memoryBytes);
    setLimit(RLIMIT_FSIZE, limits.fileBytes);
    const unsigned closeOnExec = 4; // CLOSE_RANGE_CLOEXEC
    syscall(SYS_close_range, 3U, ~0U, closeOnExec);
    if (rights == ReadingTool) {
        sock_fprog filter = {static_cast<unsigned short>(sizeof noWriting / sizeof *noWriting),
                             const_cast<sock_filter *>(noWriting)};
        if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 ||
            prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter) != 0)
            _exit(126);
    }
    if (rights != ConfinedTool)
        return;
    const int memory = int(syscall(SYS_memfd_create, "filter", 0U));
    if (memory < 0 || write(memory, noSockets, sizeof noSockets) != ssize_t(sizeof noSockets))
        return; // bubblewrap will refuse to go on without
    lseek(memory, 0, SEEK_SET);
    dup2(memory, filterDescriptor);
    close(memory);
}

} // namespace QUARRY
