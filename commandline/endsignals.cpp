#include "commandline/endsignals.h"

#include <QSocketNotifier>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace CommandLine {
namespace {

const int endingSignals[] = {SIGHUP, SIGINT, SIGQUIT, SIGTERM};
int pipeEnds[2] = {-1, -1};
int living = 0;

// Who started the program with one of them ignored, as nohup does, meant it.
void handleUnlessIgnored(int number, void (*action)(int))
{
    if (signal(number, action) == SIG_IGN)
        signal(number, SIG_IGN);
}

// May come at any moment: it only writes a byte. The same signal once more meets the default action; another
// one need not mean more, since the end of a session sends several.
void note(int number)
{
    handleUnlessIgnored(number, SIG_DFL);
    const char byte = 0;
    const ssize_t written = write(pipeEnds[1], &byte, 1);
    (void)written;
}

} // namespace

EndSignals::EndSignals()
{
    if (living++ == 0 && pipe2(pipeEnds, O_CLOEXEC | O_NONBLOCK) == 0) {
        for (const int number : endingSignals)
            handleUnlessIgnored(number, note);
    }
    if (pipeEnds[0] < 0)
        return;
    m_notifier = new QSocketNotifier(pipeEnds[0], QSocketNotifier::Read, this);
    connect(m_notifier, SIGNAL(activated(int)), SLOT(tell()));
}

EndSignals::~EndSignals()
{
    delete m_notifier;
    if (--living > 0)
        return;
    for (const int number : endingSignals)
        handleUnlessIgnored(number, SIG_DFL);
    for (int &end : pipeEnds) {
        close(end);
        end = -1;
    }
}

void EndSignals::listen()
{
    char byte = 0;
    while (read(pipeEnds[0], &byte, 1) > 0) {
    }
    for (const int number : endingSignals)
        handleUnlessIgnored(number, note);
    if (m_notifier)
        m_notifier->setEnabled(true);
}

// The byte stays in the pipe, for those that listen later.
void EndSignals::tell()
{
    m_notifier->setEnabled(false);
    Q_EMIT endAsked();
}

} // namespace CommandLine
