#include "shell/UnixSignalWatcher.h"

#include <QSocketNotifier>
#include <csignal>
#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {
// The handler may only write to a descriptor; everything else happens on the event loop.
int s_pipe[2] = {-1, -1};
} // namespace

UnixSignalWatcher::UnixSignalWatcher(QObject* parent) : QObject(parent)
{
    if (s_pipe[0] < 0 && ::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, s_pipe) != 0) {
        return;
    }
    m_notifier = new QSocketNotifier(s_pipe[1], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, [this] {
        unsigned char number = 0;
        if (::read(s_pipe[1], &number, 1) == 1) {
            emit terminationRequested(number);
        }
    });
    struct sigaction action = {};
    action.sa_handler = &UnixSignalWatcher::handle;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    ::sigaction(SIGINT, &action, nullptr);
    ::sigaction(SIGTERM, &action, nullptr);
}

UnixSignalWatcher::~UnixSignalWatcher()
{
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
}

void UnixSignalWatcher::handle(int signalNumber)
{
    const unsigned char number = static_cast<unsigned char>(signalNumber);
    [[maybe_unused]] const auto written = ::write(s_pipe[0], &number, 1);
}
