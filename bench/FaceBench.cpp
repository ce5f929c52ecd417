// The program's face, timed as a person meets it on a desktop with a tray, next to CopyQ (another resident
// Qt tray utility) started the same way in the same run:
// - process start to the tray icon docked in the tray host, and to the hotkeys live;
// - a status change to the overlay mapped on the server (in this process, through the real controller and
//   panel), first show and later shows apart;
// - resident memory (VmRSS) three seconds after start, with the main window closed.
// Needs a private X server with a window manager (tests/x11/with-xvfb.sh), trayer and copyq.
#include "BenchMain.h"
#include "DesktopTools.h"
#include "ElapsedTime.h"
#include "EventLoopWait.h"
#include "PeerProcess.h"
#include "ProcessMemory.h"
#include "ResidentAppProcess.h"
#include "SampleFigures.h"
#include "panels/StatusHUDController.h"
#include "panels/views/StatusHUDPanel.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QTextStream>
#include <X11/Xlib.h>
#include <memory>

using namespace std::chrono_literals;

namespace {

QTextStream out(stdout);

// Whether any window below `window` belongs to the process: the tray host reparents a docked icon into its
// panel, so an icon found there is docked.
bool hasWindowOf(Display* dpy, Window window, qint64 pid, Atom pidAtom)
{
    Window root = 0;
    Window parent = 0;
    Window* children = nullptr;
    unsigned int count = 0;
    if (XQueryTree(dpy, window, &root, &parent, &children, &count) == 0) {
        return false;
    }
    const std::unique_ptr<Window, int (*)(void*)> owned(children, XFree);
    for (unsigned int i = 0; i < count; ++i) {
        Atom type = 0;
        int format = 0;
        unsigned long items = 0;
        unsigned long after = 0;
        unsigned char* data = nullptr;
        if (XGetWindowProperty(dpy, children[i], pidAtom, 0, 1, False, AnyPropertyType, &type, &format,
                               &items, &after, &data) == Success &&
            data != nullptr) {
            const bool match = format == 32 && items == 1 && qint64(*reinterpret_cast<long*>(data)) == pid;
            XFree(data);
            if (match) {
                return true;
            }
        }
        if (hasWindowOf(dpy, children[i], pid, pidAtom)) {
            return true;
        }
    }
    return false;
}

bool dockedInTray(Display* dpy, qint64 pid, qint64 trayPid)
{
    const Atom pidAtom = XInternAtom(dpy, "_NET_WM_PID", False);
    Window root = 0;
    Window parent = 0;
    Window* tops = nullptr;
    unsigned int count = 0;
    XQueryTree(dpy, DefaultRootWindow(dpy), &root, &parent, &tops, &count);
    const std::unique_ptr<Window, int (*)(void*)> owned(tops, XFree);
    // The host's own windows (its panel may sit in a frame of the window manager, so frames are searched).
    for (unsigned int i = 0; i < count; ++i) {
        if (hasWindowOf(dpy, tops[i], trayPid, pidAtom) && hasWindowOf(dpy, tops[i], pid, pidAtom)) {
            return true;
        }
    }
    return false;
}

struct Samples {
    QList<double> docked;
    QList<double> hotkeys;
    QList<double> rss;
};

void runMivora(Display* dpy, qint64 trayPid, Samples& samples)
{
    ResidentAppProcess app{QStringLiteral(MIVORA_BINARY)};
    QElapsedTimer since;
    since.start();
    if (!app.start() || !app.waitForHotkeys(20s)) {
        out << "mivora did not start: " << app.standardError() << Qt::endl;
        return;
    }
    samples.hotkeys.append(millisecondsSince(since));
    samples.docked.append(
        millisecondsUntil(since, [&] { return dockedInTray(dpy, app.processId(), trayPid); }));
    pauseFor(3s);
    samples.rss.append(residentMegabytes(app.processId()));
    app.terminate();
}

void runCopyq(Display* dpy, qint64 trayPid, Samples& samples)
{
    PeerProcess copyq{QStringLiteral("copyq")};
    QElapsedTimer since;
    since.start();
    if (!copyq.start()) {
        return;
    }
    samples.docked.append(
        millisecondsUntil(since, [&] { return dockedInTray(dpy, copyq.processId(), trayPid); }));
    pauseFor(3s);
    samples.rss.append(residentMegabytes(copyq.processId()));
}

// Status published to overlay mapped, seen as the server's MapNotify on a second connection.
QList<double> overlayTimes(int iterations, double& firstShow)
{
    const X11DisplayConnection connection;
    Display* watcher = connection.get();
    XSelectInput(watcher, DefaultRootWindow(watcher), SubstructureNotifyMask);
    StatusHUDController controller([] { return std::make_unique<StatusHUDPanel>(); });
    const auto mapped = [&] {
        while (XPending(watcher) > 0) {
            XEvent event;
            XNextEvent(watcher, &event);
            if (event.type == MapNotify) {
                return true;
            }
        }
        return false;
    };
    QList<double> times;
    for (int i = 0; i <= iterations; ++i) {
        XSync(watcher, True);
        QElapsedTimer since;
        since.start();
        controller.show(ActionStatus::failed(QStringLiteral("No selected text.")));
        const double ms = millisecondsUntil(since, mapped, 5s);
        if (i == 0) {
            firstShow = ms;
        } else {
            times.append(ms);
        }
        controller.hide();
        pauseFor(100ms);
    }
    return times;
}

// The tray host, then the runs of both programs interleaved, then the overlay.
class Bench {
public:
    bool start() { return desktopReady(m_display.get()); }

    bool run(int runs)
    {
        Display* dpy = m_display.get();
        QProcess tray;
        if (!startTrayHost(tray)) {
            out << "needs trayer" << Qt::endl;
            return false;
        }

        Samples mivora;
        Samples copyq;
        for (int round = 0; round < runs; ++round) {
            // Interleaved, so a slow moment of the shared machine falls on both.
            runMivora(dpy, tray.processId(), mivora);
            runCopyq(dpy, tray.processId(), copyq);
        }
        double firstShow = 0;
        const QList<double> overlay = overlayTimes(30, firstShow);

        out << "runs: " << runs << " each, interleaved, same private home and tray host" << Qt::endl;
        out << "start to tray icon docked: mivora " << medianAndTail(mivora.docked) << "; copyq "
            << medianAndTail(copyq.docked) << Qt::endl;
        out << "start to hotkeys live:     mivora " << medianAndTail(mivora.hotkeys) << Qt::endl;
        out << "idle RSS after 3 s:        mivora " << medianAndTail(mivora.rss, 0, QStringLiteral("MiB"))
            << "; copyq " << medianAndTail(copyq.rss, 0, QStringLiteral("MiB")) << Qt::endl;
        out << "status to overlay mapped:  first show " << QString::number(firstShow, 'f', 1) << " ms; later "
            << medianAndTail(overlay) << Qt::endl;
        tray.kill();
        tray.waitForFinished();
        return true;
    }

private:
    X11DisplayConnection m_display;
};

} // namespace

int main(int argc, char** argv)
{
    return runBenchmark<Bench>(argc, argv, 10, 0);
}
