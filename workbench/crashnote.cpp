#include "workbench/crashnote.h"

#include <csignal>
#include <cstdlib>
#include <cstring>
#include <unistd.h>

#include "workbench/logfile.h"

namespace Workbench {
namespace {

const int faults[] = {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT};

// Nothing here takes memory or a lock: what failed may hold either.
void print(int file, const char *text)
{
    const ssize_t written = write(file, text, strlen(text));
    (void)written;
}

const char *nameOf(int number)
{
    switch (number) {
    case SIGSEGV:
        return "SIGSEGV";
    case SIGBUS:
        return "SIGBUS";
    case SIGFPE:
        return "SIGFPE";
    case SIGILL:
        return "SIGILL";
    default:
        return "SIGABRT";
    }
}

void tell(int file, int number)
{
    print(file, "jexworkbench: The program has a fault and ends (");
    print(file, nameOf(number));
    print(file, ").");
}

// The default action is back by now, and meets the signal when this returns.
void onFault(int number)
{
    tell(STDERR_FILENO, number);
    if (LogFile::descriptor() >= 0) {
        print(STDERR_FILENO, " What went before is in the log ");
        print(STDERR_FILENO, LogFile::path());
        print(STDERR_FILENO, ".\n");
        tell(LogFile::descriptor(), number);
        print(LogFile::descriptor(), "\n");
    } else {
        print(STDERR_FILENO, " With --log FILE there is a log of what went before.\n");
    }
    raise(number);
}

} // namespace

void tellOfCrashes()
{
    // A stack of its own, for when the other one is what ran out.
    static char stack[64 * 1024];
    stack_t place = {};
    place.ss_sp = stack;
    place.ss_size = sizeof stack;
    sigaltstack(&place, nullptr);
    struct sigaction action = {};
    action.sa_handler = onFault;
    action.sa_flags = int(SA_RESETHAND | SA_ONSTACK);
    for (const int number : faults)
        sigaction(number, &action, nullptr);
}

} // namespace Workbench
