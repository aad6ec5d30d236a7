#include <QCoreApplication>
#include <QTextCodec>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

#include "cli/arguments.h"

namespace {

using namespace Cli;

void printHelp(Output &out)
{
    out.line("Usage: jex COMMAND [ARGUMENTS]");
    out.line("Checks and changes the configuration of embedded logic analyzers without a window.\n");
    for (const Command &command : commands)
        out.line("  " + QString(command.name).leftJustified(9) + command.summary);
    out.line("\njex COMMAND --help tells what a command takes. Exit codes: 0 fine, 1 findings, 2 wrong use, "
             "3 could not run.");
}

ExitCode run(const QStringList &words, Output &out)
{
    const QString name = words.value(0);
    if (name == "--version") {
        out.line("jex " JEX_VERSION);
        return Fine;
    }
    if (name == "--help" || name == "-h" || (name == "help" && words.size() == 1)) {
        printHelp(out);
        return Fine;
    }
    if (name == "help")
        return run({words.at(1), "--help"}, out);
    for (const Command &command : commands) {
        if (name == command.name)
            return command.run(words.mid(1), out);
    }
    QStringList names;
    for (const Command &command : commands)
        names << command.name;
    say(name.isEmpty()
            ? QString("jex: A command is missing. See jex --help.")
            : "jex: There is no command \"" + name + "\"." + nearWord(name, names) + " See jex --help.");
    return WrongUse;
}

// A standard stream that the caller has closed would become the next file that is opened, and messages would
// end in that.
void occupyStandardStreams()
{
    int descriptor;
    do {
        descriptor = open("/dev/null", O_RDONLY);
    } while (descriptor >= 0 && descriptor <= STDERR_FILENO);
    if (descriptor >= 0)
        close(descriptor);
}

} // namespace

int main(int argc, char *argv[])
{
    occupyStandardStreams();
    // A reader that has seen enough ends the output, not the program, which cleans up after itself.
    signal(SIGPIPE, SIG_IGN);
    // A file that may not grow any more is a sentence, not the end.
    signal(SIGXFSZ, SIG_IGN);
    // Build servers often run in the C locale, whose codec knows no name beyond ASCII.
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    QCoreApplication application(argc, argv);
    Output out(STDOUT_FILENO);
    const ExitCode code = run(QCoreApplication::arguments().mid(1), out);
    if (out.flush())
        return code;
    if (out.error() != EPIPE)
        say(QString("jex: The output cannot be written: ") + strerror(out.error()) + '.');
    return CouldNotRun;
}
