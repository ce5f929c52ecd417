#include "platform/x11/X11ConnectionLossMonitor.h"

#include "platform/x11/QtXcbConnection.h"

#include <QCoreApplication>
#include <QThread>
#include <X11/Xlib.h>
#include <cstdio>
#include <cstdlib>
#include <unistd.h>

namespace {

// Process-wide, like the handlers that reach it; a plain static, so a message from another thread never
// meets a freed watch.
struct Watch {
    bool active = false;
    bool ending = false;
    std::function<void()> savePending;
    xcb_connection_t* qtConnection = nullptr;
    XIOErrorHandler previousIOErrorHandler = nullptr;
    QtMessageHandler previousMessageHandler = nullptr;
};
Watch watch;

bool onGuiThread()
{
    const QCoreApplication* application = QCoreApplication::instance();
    return application != nullptr && QThread::currentThread() == application->thread();
}

bool qtConnectionBroken()
{
    return watch.qtConnection != nullptr && xcb_connection_has_error(watch.qtConnection) != 0;
}

[[noreturn]] void endAfterLoss()
{
    watch.ending = true;
    if (watch.savePending) {
        watch.savePending();
    }
    std::fflush(stdout);
    std::fputs("MivoraAI: the connection to the X server was lost.\n", stderr);
    std::fflush(stderr);
    // WORKAROUND: not exit(): its static destructors would run under live windows whose connection is gone,
    // and a sanitizer would report every object the stack still holds. What mattered is saved.
    _exit(EXIT_FAILURE);
}

int onIOError(Display* /*display*/)
{
    // Xlib calls this for a connection that can never be used again, and exits itself if it returns.
    if (watch.active && !watch.ending) {
        endAfterLoss();
    }
    _exit(EXIT_FAILURE);
}

void onMessage(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    // Qt's warning about its broken connection is the last moment before its exit(1); its text is Qt's
    // affair, the broken connection is what counts.
    if (watch.active && !watch.ending && type == QtWarningMsg && onGuiThread() && qtConnectionBroken()) {
        endAfterLoss();
    }
    watch.previousMessageHandler(type, context, message);
}

void onExit()
{
    // Should a Qt version leave out the warning, its exit(1) still passes here.
    if (watch.active && !watch.ending && onGuiThread() && qtConnectionBroken()) {
        endAfterLoss();
    }
}

} // namespace

X11ConnectionLossMonitor::~X11ConnectionLossMonitor()
{
    setLossHandler({});
}

void X11ConnectionLossMonitor::setLossHandler(std::function<void()> savePending)
{
    watch.savePending = std::move(savePending);
    const bool watching = bool(watch.savePending);
    if (watching == m_watching) {
        return;
    }
    m_watching = watching;
    if (watching) {
        watch.qtConnection = qtXcbConnection();
        watch.previousIOErrorHandler = XSetIOErrorHandler(&onIOError);
        watch.previousMessageHandler = qInstallMessageHandler(&onMessage);
        static const bool exitHookSet = std::atexit(&onExit) == 0;
        Q_UNUSED(exitHookSet);
        watch.active = true;
    } else {
        watch.active = false;
        qInstallMessageHandler(watch.previousMessageHandler);
        XSetIOErrorHandler(watch.previousIOErrorHandler);
        watch.qtConnection = nullptr;
    }
}
