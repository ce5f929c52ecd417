// The clipboard panel on a history at its largest, 1,000 items of which every tenth is 1 MiB (the rest
// 2 KiB), next to CopyQ holding the same texts in the same run:
// - the clipboard hotkey to the panel mapped and painted on the server, first show and later shows apart;
// - a keystroke in the search field to the list filtered and repainted (in this process, through the real
//   controller and panel);
// - resident memory (VmRSS) of each program one second after its window with the history opened.
// Needs a private X server with a window manager (tests/x11/with-xvfb.sh) and copyq.
#include "BenchMain.h"
#include "DesktopTools.h"
#include "ElapsedTime.h"
#include "EventLoopWait.h"
#include "FakeAccessibilityTree.h"
#include "FakeApplicationWorkspace.h"
#include "FakePasteboard.h"
#include "FakeTextExchange.h"
#include "MemoryDefaultsStore.h"
#include "PaintedWindow.h"
#include "PeerProcess.h"
#include "ProcessMemory.h"
#include "ResidentAppProcess.h"
#include "SampleFigures.h"
#include "TestClock.h"
#include "X11TestClient.h"
#include "clipboard/ClipboardHistoryService.h"
#include "clipboard/ClipboardNotesService.h"
#include "clipboard/ClipboardPanelController.h"
#include "clipboard/views/ClipboardHistoryPanel.h"
#include "exchange/FocusService.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTextStream>
#include <X11/Xlib.h>
// Xlib names an event type KeyPress, which would hide Qt's.
#undef KeyPress

using namespace std::chrono_literals;

namespace {

QTextStream out(stdout);
constexpr int itemCount = 1000;
const QString panelTitle = QStringLiteral("Clipboard");

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
        const double ms = millisecondsUntil(since, [&] { return windowPainted(dpy, panelTitle); });
        if (show == 0) {
            samples.firstShow = ms;
            pauseFor(1s);
            samples.rss = residentMegabytes(app.processId());
        } else {
            samples.laterShows.append(ms);
        }
        keyboard.type({QStringLiteral("Escape")});
        spinUntil([&] { return viewableWindow(dpy, panelTitle) == 0; });
        pauseFor(300ms);
    }
    app.terminate();
    return samples;
}

// CopyQ with the same texts, newest first, its window opened on them.
double runCopyq()
{
    PeerProcess copyq{QStringLiteral("copyq")};
    if (!copyq.start()) {
        return 0;
    }
    pauseFor(2s);
    const auto client = [&](const QStringList& arguments) { return copyq.command(arguments, 300s); };
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
    const double rss = residentMegabytes(copyq.processId());
    client({QStringLiteral("exit")});
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
            times.append(millisecondsSince(since));
        }
    }
    controller.hide();
    return times;
}

QString summary(const QList<double>& values)
{
    return values.isEmpty() ? medianAndTail(values)
                            : medianAndTail(values) + QStringLiteral("  ") + rangeOf(values);
}

// The history written once, then both programs on it, then the search keystrokes in this process.
class Bench {
public:
    bool start()
    {
        if (!desktopReady(m_display.get())) {
            return false;
        }
        m_blob = historyBlob();
        out << "history: " << itemCount << " items, "
            << QString::number(double(m_blob.size()) / 1048576.0, 'f', 1) << " MiB stored" << Qt::endl;
        return true;
    }

    bool run(int shows)
    {
        const AppSamples mivora = runMivora(m_display.get(), m_blob, shows);
        const double copyqRss = runCopyq();
        const QList<double> keystrokes = searchKeystrokes(m_blob);

        out << "hotkey to panel painted:  first show " << QString::number(mivora.firstShow, 'f', 1)
            << " ms; later " << summary(mivora.laterShows) << Qt::endl;
        out << "search keystroke to list repainted: " << summary(keystrokes) << Qt::endl;
        out << "RSS 1 s after the window opened on the history: mivora "
            << QString::number(mivora.rss, 'f', 1) << " MiB; copyq " << QString::number(copyqRss, 'f', 1)
            << " MiB" << Qt::endl;
        return true;
    }

private:
    X11DisplayConnection m_display;
    QByteArray m_blob;
};

} // namespace

int main(int argc, char** argv)
{
    return runBenchmark<Bench>(argc, argv, 20, 0);
}
