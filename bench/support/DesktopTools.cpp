#include "DesktopTools.h"

#include "EventLoopWait.h"

#include <QTextStream>

using namespace std::chrono_literals;

bool desktopReady(Display* display)
{
    if (display == nullptr || !waitForWindowManager()) {
        QTextStream(stderr) << "needs a private X server with a window manager: tests/x11/with-xvfb.sh\n";
        return false;
    }
    return true;
}

bool useUsAndRuLayouts()
{
    if (!runTool(QStringLiteral("setxkbmap"), {QStringLiteral("-layout"), QStringLiteral("us,ru")})) {
        QTextStream(stderr) << "setxkbmap failed\n";
        return false;
    }
    return true;
}

bool closeWindow(const QString& title)
{
    runTool(QStringLiteral("wmctrl"), {QStringLiteral("-c"), title});
    return spinUntil([&] { return !windowShown(title); }, 10s);
}
