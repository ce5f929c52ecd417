// The clipboard panel on a history at its largest, 1,000 items of which every tenth is 1 MiB (the rest
// 2 KiB), next to CopyQ holding the same texts in the same run:
// - the clipboard hotkey to the panel mapped and painted on the server, first show and later shows apart;
// - a keystroke in the search field to the list filtered and repainted (in this process, through the real
//   controller and panel);
// - resident memory (VmRSS) of each program one second after its window with the history opened.
// Needs a private X server with a window manager (tests/x11/with-xvfb.sh) and copyq.
#include "EventLoopWait.h"
#include "FakeAccessibilityTree.h"
#include "FakeApplicationWorkspace.h"
#include "FakePasteboard.h"
#include "FakeTextExchange.h"
#include "MemoryDefaultsStore.h"
#include "Percentile.h"
#include "ResidentAppProcess.h"
#include "TestClock.h"
#include "X11TestClient.h"
#include "clipboard/ClipboardHistoryService.h"
#include "clipboard/ClipboardNotesService.h"
#include "clipboard/ClipboardPanelController.h"
#include "clipboard/views/ClipboardHistoryPanel.h"
#include "exchange/FocusService.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLineEdit>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
// Xlib names an event type KeyPress, which would hide Qt's.
#undef KeyPress
#include <functional>

using namespace std::chrono_literals;

namespace {

QTextStream out(stdout);
constexpr int itemCount = 1000;

QString itemText(int index)
{
    const int size = index % 10 == 0 ? 1024 * 1024 : 2048;
    return QStringLiteral("item %1 ").arg(index, 4, 10, QLatin1Char('0')).leftJustified(size, u'x');
}

QByteArray historyBlob()
{
    QList<ClipboardHistoryItem> items;
    const QDateTime now = QDateTime::currentDateTimeUtc();
    for (int index = 0; index < itemCount; ++index) {
        items.append(ClipboardHistoryItem::make(itemText(index), now.addSecs(-index)));
    }
    return ClipboardHistoryItem::encodeList(items);
}

double residentMegabytes(qint64 pid)
{
    QFile status(QStringLiteral("/proc/%1/status").arg(pid));
    if (!status.open(QIODevice::ReadOnly)) {
        return 0;
    }
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("VmRSS:")) {
            return line.mid(6).trimmed().split(' ').first().toDouble() / 1024.0;
        }
    }
    return 0;
}

double millisecondsUntil(const QElapsedTimer& since, const std::function<bool()>& done,
                         std::chrono::milliseconds guard = 20s)
{
    while (since.elapsed() < guard.count()) {
        if (done()) {
            return double(since.nsecsElapsed()) / 1e6;
        }
        pauseFor(1ms);
    }
    return -1;
}

// The viewable top-level window with this title, searched below the window manager's frames.
Window findViewable(Display* dpy, Window parent, const char* title)
{
    Window root = 0;
    Window up = 0;
    Window* children = nullptr;
    unsigned int count = 0;
    if (XQueryTree(dpy, parent, &root, &up, &children, &count) == 0) {
        return 0;
    }
    Window found = 0;
    for (unsigned int i = 0; i < count && found == 0; ++i) {
        XWindowAttributes attributes;
        if (XGetWindowAttributes(dpy, children[i], &attributes) == 0 || attributes.map_state != IsViewable) {
            continue;
        }
        char* name = nullptr;
        if (XFetchName(dpy, children[i], &name) != 0 && name != nullptr) {
            if (qstrcmp(name, title) == 0) {
                found = children[i];
            }
            XFree(name);
        }
        if (found == 0) {
            found = findViewable(dpy, children[i], title);
        }
    }
    XFree(children);
    return found;
}

// Mapped and painted: a pixel of the sheet's header is no longer the unpainted black.
bool panelPainted(Display* dpy)
{
    const Window panel = findViewable(dpy, DefaultRootWindow(dpy), "Clipboard");
    if (panel == 0) {
        return false;
    }
    XImage* image = XGetImage(dpy, panel, 60, 12, 1, 1, AllPlanes, ZPixmap);
    if (image == nullptr) {
        return false;
    }
    const bool painted = XGetPixel(image, 0, 0) != 0;
    XDestroyImage(image);
    return painted;
}

struct AppSamples {
    double firstShow = -1;
    QList<double> laterShows;
    double rss = 0;
};

void pressHotkey(X11TestClient& keyboard)
{
    keyboard.press(QStringLiteral("Alt_L"));
    keyboard.press(QStringLiteral("v"));
    keyboard.release(QStringLiteral("v"));
    keyboard.release(QStringLiteral("Alt_L"));
}

AppSamples runMivora(Display* dpy, const QByteArray& blob, int shows)
{
    AppSamples samples;
    X11TestClient keyboard;
    ResidentAppProcess app{QStringLiteral(MIVORA_BINARY)};
    app.setSetting(QStringLiteral("mivora.clipboardLimit"), itemCount);
    app.setSetting(ClipboardHistoryService::storageKey(), blob);
    if (!app.start() || !app.waitForHotkeys(60s)) {
        out << "mivora did not start: " << app.standardError() << Qt::endl;
        return samples;
    }
    // Start-up stores the pruned history once; the panel is timed on an idle program.
    const QString config =
        app.environment().value(QStringLiteral("XDG_CONFIG_HOME")) + QStringLiteral("/MivoraAI/mivora.conf");
    // The program rewrites the file it was given (atomically, so its time moves only when the write is done).
    const QDateTime given = QFileInfo(config).lastModified();
    QDateTime lastWrite;
    spinUntil(
        [&] {
            const QDateTime now = QFileInfo(config).lastModified();
            const bool settled =
                now > given && now == lastWrite && now.secsTo(QDateTime::currentDateTime()) >= 2;
            lastWrite = now;
            return settled;
        },
        60s);
    for (int show = 0; show <= shows; ++show) {
        XSync(dpy, False);
        QElapsedTimer since;
        since.start();
        pressHotkey(keyboard);
        const double ms = millisecondsUntil(since, [&] { return panelPainted(dpy); });
        if (show == 0) {
            samples.firstShow = ms;
            pauseFor(1s);
            samples.rss = residentMegabytes(app.processId());
        } else {
            samples.laterShows.append(ms);
        }
        keyboard.type({QStringLiteral("Escape")});
        spinUntil([&] { return findViewable(dpy, DefaultRootWindow(dpy), "Clipboard") == 0; });
        pauseFor(300ms);
    }
    app.terminate();
    return samples;
}

// CopyQ with the same texts, newest first, its window opened on them.
double runCopyq(const QString& unused)
{
    Q_UNUSED(unused);
    ResidentAppProcess home{QStringLiteral("copyq")};
    QProcess server;
    server.setProcessEnvironment(home.environment());
    server.start(QStringLiteral("copyq"), {});
    if (!server.waitForStarted()) {
        out << "copyq did not start (apt-get install copyq)" << Qt::endl;
        return 0;
    }
    pauseFor(2s);
    const auto client = [&](const QStringList& arguments) {
        QProcess command;
        command.setProcessEnvironment(home.environment());
        command.start(QStringLiteral("copyq"), arguments);
        return command.waitForFinished(300000) && command.exitCode() == 0;
    };
    const QString script = QStringLiteral("for (var i = %1 - 1; i >= 0; --i) {"
                                          "  var head = 'item ' + ('000' + i).slice(-4) + ' ';"
                                          "  var size = i %% 10 == 0 ? 1048576 : 2048;"
                                          "  add(head + 'x'.repeat(size - head.length));"
                                          "}")
                               .arg(itemCount)
                               .replace(QStringLiteral("%%"), QStringLiteral("%"));
    if (!client({QStringLiteral("config"), QStringLiteral("maxitems"), QString::number(itemCount)}) ||
        !client({QStringLiteral("eval"), script}) || !client({QStringLiteral("show")})) {
        out << "copyq did not take the history" << Qt::endl;
    }
    pauseFor(1s);
    const double rss = residentMegabytes(server.processId());
    client({QStringLiteral("exit")});
    server.waitForFinished(10000);
    return rss;
}

// Keystrokes into the search field of the real panel, each timed to the list filtered and repainted.
QList<double> searchKeystrokes(const QByteArray& blob)
{
    TestClock clock;
    MemoryDefaultsStore defaults;
    defaults.setValue(ClipboardHistoryService::storageKey(), blob);
    FakePasteboard pasteboard;
    ClipboardHistoryService history(pasteboard, clock, defaults);
    QTemporaryDir directory;
    ClipboardNotesService notes(clock, defaults, directory.path());
    FakeTextExchange exchange(clock);
    FakeApplicationWorkspace workspace;
    FakeAccessibilityTree tree;
    FocusService focus(workspace, tree);
    ClipboardHistoryPanel* panel = nullptr;
    ClipboardPanelController controller(
        {clock, defaults, history, notes, pasteboard, exchange, focus, workspace, nullptr, nullptr},
        [&panel](ClipboardPanelController& owner) {
            auto made = std::make_unique<ClipboardHistoryPanel>(owner, nullptr);
            panel = made.get();
            return made;
        });
    controller.show();
    pauseFor(500ms);
    QLineEdit* search = nullptr;
    for (QLineEdit* field : panel->findChildren<QLineEdit*>()) {
        if (field->placeholderText() == QStringLiteral("Search")) {
            search = field;
        }
    }
    QList<double> times;
    // Typing narrows, a miss and its deletion read every text again.
    const QList<int> keys{Qt::Key_I,         Qt::Key_T,         Qt::Key_E,        Qt::Key_M,
                          Qt::Key_Space,     Qt::Key_0,         Qt::Key_5,        Qt::Key_Z,
                          Qt::Key_Backspace, Qt::Key_Backspace, Qt::Key_Backspace};
    for (int round = 0; round < 5; ++round) {
        search->clear();
        controller.clearSearch();
        QApplication::processEvents();
        for (const int key : keys) {
            const QString text = key == Qt::Key_Backspace ? QString()
                                 : key == Qt::Key_Space   ? QStringLiteral(" ")
                                                          : QKeySequence(key).toString().toLower();
            QElapsedTimer since;
            since.start();
            QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
            QApplication::sendEvent(search, &press);
            QApplication::processEvents();
            panel->repaint();
            times.append(double(since.nsecsElapsed()) / 1e6);
        }
    }
    controller.hide();
    return times;
}

QString summary(const QList<double>& values, const char* unit)
{
    if (values.isEmpty()) {
        return QStringLiteral("n/a");
    }
    return QStringLiteral("p50 %1 %3, p95 %2 %3, max %4 %3")
        .arg(percentile(values, 0.5), 0, 'f', 1)
        .arg(percentile(values, 0.95), 0, 'f', 1)
        .arg(QLatin1String(unit))
        .arg(*std::max_element(values.begin(), values.end()), 0, 'f', 1);
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const int shows = argc > 1 ? QString::fromLatin1(argv[1]).toInt() : 20;
    Display* dpy = XOpenDisplay(nullptr);
    if (dpy == nullptr || !waitForWindowManager()) {
        out << "needs a private X server with a window manager: tests/x11/with-xvfb.sh" << Qt::endl;
        return 1;
    }
    const QByteArray blob = historyBlob();
    out << "history: " << itemCount << " items, " << QString::number(double(blob.size()) / 1048576.0, 'f', 1)
        << " MiB stored" << Qt::endl;
    const AppSamples mivora = runMivora(dpy, blob, shows);
    const double copyqRss = runCopyq({});
    const QList<double> keystrokes = searchKeystrokes(blob);

    out << "hotkey to panel painted:  first show " << QString::number(mivora.firstShow, 'f', 1)
        << " ms; later " << summary(mivora.laterShows, "ms") << Qt::endl;
    out << "search keystroke to list repainted: " << summary(keystrokes, "ms") << Qt::endl;
    out << "RSS 1 s after the window opened on the history: mivora " << QString::number(mivora.rss, 'f', 1)
        << " MiB; copyq " << QString::number(copyqRss, 'f', 1) << " MiB" << Qt::endl;
    XCloseDisplay(dpy);
    return 0;
}
