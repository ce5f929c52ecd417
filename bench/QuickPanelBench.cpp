#include "AppBesideField.h"
#include "BenchMain.h"
#include "ClipboardRouteFloor.h"
#include "DesktopTools.h"
#include "ElapsedTime.h"
#include "EventLoopWait.h"
#include "HeldChord.h"
#include "PaintedWindow.h"
#include "SampleFigures.h"
#include "UserClipboard.h"

#include <QElapsedTimer>
#include <QTextStream>
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
#include <algorithm>

using namespace std::chrono_literals;

namespace {

// A person's press of a key or of the mouse button.
constexpr auto personHold = 100ms;
// The first row's middle in panel coordinates, below the header.
constexpr int rowX = 80;
constexpr int rowY = 62;

const QString panelTitle = QStringLiteral("MivoraAI");
const QString typed = QStringLiteral("ghbdtn");
const QString fixed = QStringLiteral("привет");

QString floorLine(const char* label, const ClipboardRouteFloor& floor)
{
    return QStringLiteral("  %1: %2 ms to the V press, %3 ms to the clipboard restored\n    = %4\n")
        .arg(QLatin1String(label))
        .arg(floor.toPastePress())
        .arg(floor.toRestored())
        .arg(floor.derivation());
}

class Driver {
public:
    bool start()
    {
        // The layout row first, so its place on the panel is known.
        for (const char* key : {"mivora.quickMenu.actions", "mivora.quickMenu.order"}) {
            m_desk.app().setSetting(QString::fromLatin1(key), QStringLiteral(R"(["layout","ai"])"));
        }
        m_desk.app().setSetting(QStringLiteral("mivora.layoutAutoSwitch"), false);
        if (!useUsAndRuLayouts() || !m_desk.start()) {
            return false;
        }
        fillUserClipboard();
        return true;
    }

    // Alt+Q held for a moment to the panel mapped and painted; the time runs from the Q press.
    std::optional<double> openPanel()
    {
        runTool(QStringLiteral("xdotool"),
                {QStringLiteral("mousemove"), QStringLiteral("5"), QStringLiteral("5")});
        HeldChord chord(m_desk.keyboard(), {QStringLiteral("Alt_L")}, QStringLiteral("q"), personHold, 50ms);
        chord.pressModifiers();
        QElapsedTimer timer;
        timer.start();
        chord.pressKey();
        // The panel may come on the press or on the release; the keys go up on time either way.
        Display* display = m_desk.keyboard().display();
        const bool shown = spinUntil([&] { return windowPainted(display, panelTitle); }, 10s);
        const double elapsed = millisecondsSince(timer);
        m_panel = viewableWindow(display, panelTitle);
        chord.waitReleased();
        if (!shown) {
            QTextStream(stderr) << "no panel\n" << m_desk.app().standardError();
            return std::nullopt;
        }
        return elapsed;
    }

    // A click on the first row held for a moment; the time runs from the button press and from its release.
    std::optional<std::pair<double, double>> clickRow()
    {
        Display* display = m_desk.keyboard().display();
        int x = 0;
        int y = 0;
        Window child = 0;
        if (m_panel == 0 || !XTranslateCoordinates(display, m_panel, DefaultRootWindow(display), rowX, rowY,
                                                   &x, &y, &child)) {
            return std::nullopt;
        }
        XTestFakeMotionEvent(display, -1, x, y, 0);
        XSync(display, False);
        pauseFor(30ms);
        QElapsedTimer timer;
        timer.start();
        XTestFakeButtonEvent(display, 1, True, 0);
        XSync(display, False);
        bool released = false;
        double releasedAt = 0;
        const bool replaced = spinUntil(
            [&] {
                if (!released && timer.elapsed() >= personHold.count()) {
                    XTestFakeButtonEvent(display, 1, False, 0);
                    XSync(display, False);
                    releasedAt = millisecondsSince(timer);
                    released = true;
                }
                return m_desk.field().text() == fixed;
            },
            10s);
        const double elapsed = millisecondsSince(timer);
        if (!released) {
            XTestFakeButtonEvent(display, 1, False, 0);
            XSync(display, False);
            releasedAt = elapsed;
        }
        if (!replaced) {
            QTextStream(stderr) << "no replacement; the field holds "
                                << m_desk.field().text().value_or(QString()) << '\n'
                                << m_desk.app().standardError();
            return std::nullopt;
        }
        return std::pair(elapsed, elapsed - releasedAt);
    }

    // The typed text wholly selected by the field itself, which leaves PRIMARY alone so the copy route runs,
    // and the app done with the previous paste.
    bool prepare() { return m_desk.selectInField(typed) && waitForUserClipboard(); }

    // Each repetition: open and close once (a show), then open again and click the row.
    bool run(int repetitions)
    {
        std::optional<double> firstShow;
        QList<double> laterShows;
        QList<double> pressToReplaced;
        QList<double> releaseToReplaced;
        for (int repetition = 0; repetition < repetitions; ++repetition) {
            if (!prepare()) {
                QTextStream(stderr) << "could not select the text\n";
                return false;
            }
            const std::optional<double> shown = openPanel();
            if (!shown || !closeWindow(panelTitle)) {
                return false;
            }
            (firstShow ? laterShows.append(*shown) : void(firstShow = shown));
            pauseFor(50ms);
            const std::optional<double> again = openPanel();
            if (!again) {
                return false;
            }
            laterShows.append(*again);
            const auto replaced = clickRow();
            if (!replaced) {
                return false;
            }
            pressToReplaced.append(replaced->first);
            releaseToReplaced.append(replaced->second);
        }
        QTextStream(stdout)
            << "Quick panel, " << repetitions << " repetitions\n"
            << QStringLiteral("  Alt+Q (held %1 ms) -> panel painted, first show:  %2 ms\n")
                   .arg(personHold.count())
                   .arg(*firstShow, 0, 'f', 1)
            << QStringLiteral("  Alt+Q (held %1 ms) -> panel painted, later shows: ").arg(personHold.count())
            << medianAndTail(laterShows) << "  (" << laterShows.size() << " shows)\n"
            << QStringLiteral("  click \"Fix layout\" (held %1 ms), button down -> text replaced: ")
                   .arg(personHold.count())
            << medianAndTail(pressToReplaced) << '\n'
            << "  click \"Fix layout\", button up -> text replaced:                 "
            << medianAndTail(releaseToReplaced) << '\n'
            << "Floors of the clipboard route's fixed sleeps:\n"
            << floorLine("paste route, standard timing",
                         ClipboardRouteFloor::paste(PasteboardTiming::standardTiming()))
            << floorLine("layout row's route, quick timing",
                         ClipboardRouteFloor::readThenPaste(PasteboardTiming::quickTiming(), false));
        return true;
    }

private:
    AppBesideField m_desk{QStringLiteral(MIVORA_BINARY)};
    Window m_panel = 0;
};

} // namespace

// The quick panel on the real resident app over a real text field of another process: Alt+Q to the panel
// mapped and painted on the server, and a click on its layout-fix row to the field's selection replaced.
// Needs a private X server with a window manager (tests/x11/with-xvfb.sh). The panel figures include up to
// 2 ms of polling granularity, the click figures a few more (one field query per poll). Usage:
// mivora_quick_panel_bench [REPETITIONS], 15 by default.
int main(int argc, char** argv)
{
    return runBenchmark<Driver>(argc, argv, 15, 2);
}
