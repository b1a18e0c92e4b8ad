#include "platform/TerminationSignals.h"

#include <QSocketNotifier>

#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

namespace Foundation
{

namespace
{

constexpr int Signals[] = {SIGTERM, SIGHUP, SIGINT};
// The signal handler writes into the first socket, the event loop reads from the second.
int sockets[2] = {-1, -1};

void tellEventLoop(int)
{
    // A signal handler may do no more than this; the event loop does the rest.
    const char any = 1;
    const auto written = ::write(sockets[0], &any, sizeof(any));
    (void)written;
}

} // namespace

TerminationSignals::TerminationSignals(QObject *parent)
    : QObject(parent)
{
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, sockets) != 0)
        return;
    m_notifier = new QSocketNotifier(sockets[1], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &TerminationSignals::takeSignal);
    for (const int number : Signals) {
        struct sigaction action = {};
        action.sa_handler = tellEventLoop;
        action.sa_flags = SA_RESTART | int(SA_RESETHAND);
        ::sigaction(number, &action, nullptr);
    }
}

TerminationSignals::~TerminationSignals()
{
    for (const int number : Signals)
        ::signal(number, SIG_DFL);
    delete m_notifier;
    for (int &socket : sockets) {
        if (socket >= 0)
            ::close(socket);
        socket = -1;
    }
}

void TerminationSignals::takeSignal()
{
    char any = 0;
    if (::read(sockets[1], &any, sizeof(any)) > 0)
        Q_EMIT terminationRequested();
}

} // namespace Foundation
