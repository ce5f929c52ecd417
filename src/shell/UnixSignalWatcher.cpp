#include "shell/UnixSignalWatcher.h"

#include <QSocketNotifier>
#include <QtGlobal>
#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {
// The handler may only write to a descriptor; everything else happens on the event loop. [0] is written by
// the handler, [1] read by the loop.
int s_pipe[2] = {-1, -1};
} // namespace

UnixSignalWatcher::UnixSignalWatcher(QObject* parent) : QObject(parent)
{
    Q_ASSERT_X(s_pipe[0] < 0, "UnixSignalWatcher", "one watcher at a time");
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, s_pipe) != 0) {
        s_pipe[0] = s_pipe[1] = -1;
        return;
    }
    // A burst of signals must never block the handler; a full buffer already holds a request to quit.
    ::fcntl(s_pipe[0], F_SETFL, ::fcntl(s_pipe[0], F_GETFL) | O_NONBLOCK);
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
    ::sigaction(SIGINT, &action, &m_previousInterrupt);
    ::sigaction(SIGTERM, &action, &m_previousTerminate);
}

UnixSignalWatcher::~UnixSignalWatcher()
{
    if (m_notifier == nullptr) {
        return;
    }
    // Handlers first, so no signal writes to a closed descriptor.
    ::sigaction(SIGINT, &m_previousInterrupt, nullptr);
    ::sigaction(SIGTERM, &m_previousTerminate, nullptr);
    delete m_notifier;
    m_notifier = nullptr;
    ::close(s_pipe[0]);
    ::close(s_pipe[1]);
    s_pipe[0] = s_pipe[1] = -1;
}

void UnixSignalWatcher::handle(int signalNumber)
{
    const unsigned char number = static_cast<unsigned char>(signalNumber);
    [[maybe_unused]] const auto written = ::write(s_pipe[0], &number, 1);
}
