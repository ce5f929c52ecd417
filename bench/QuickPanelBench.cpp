#include "EventLoopWait.h"
#include "Percentile.h"
#include "ResidentAppProcess.h"
#include "TestFieldProcess.h"
#include "X11TestClient.h"
#include "core/PasteboardTiming.h"

#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>
#include <QTextStream>
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
#include <algorithm>

using namespace std::chrono_literals;

namespace {

// The app holds every synthetic shortcut down this long between its press and its release.
constexpr int shortcutHold = 20;
// A person's press of a key or of the mouse button.
constexpr auto personHold = 100ms;
// The first row's middle in panel coordinates, below the header.
constexpr int rowX = 80;
constexpr int rowY = 62;

const QString panelTitle = QStringLiteral("MivoraAI");
const QString typed = QStringLiteral("ghbdtn");
const QString fixed = QStringLiteral("привет");
const QByteArray userClipboard = "user clipboard \xE2\x9C\x93";

double millisecondsOf(const QElapsedTimer& timer)
{
    return double(timer.nsecsElapsed()) / 1e6;
}

// The visible panel's window id, or nullopt when it is not on screen.
std::optional<Window> shownPanel()
{
    const auto ids =
        runTool(QStringLiteral("xdotool"), {QStringLiteral("search"), QStringLiteral("--onlyvisible"),
                                            QStringLiteral("--name"), u'^' + panelTitle + u'$'});
    if (!ids || ids->trimmed().isEmpty()) {
        return std::nullopt;
    }
    return Window(ids->trimmed().split('\n').first().toULong());
}

QString floorLine(const char* label, int toPress, int toRestored, const QString& derivation)
{
    return QStringLiteral("  %1: %2 ms to the V press, %3 ms to the clipboard restored\n    = %4\n")
        .arg(QLatin1String(label))
        .arg(toPress)
        .arg(toRestored)
        .arg(derivation);
}

// The fixed sleeps of the paste route under standard timing, and of the route the layout row really takes
// (a quick copy, then a quick paste), from the app's own timing constants.
QString clipboardFloors()
{
    const PasteboardTiming s = PasteboardTiming::standardTiming();
    const PasteboardTiming q = PasteboardTiming::quickTiming();
    const int standardToPress = s.activationDelay + s.pasteDelay;
    const int quickToPress = q.activationDelay + shortcutHold + q.activationDelay + q.pasteDelay;
    return floorLine("paste route, standard timing", standardToPress,
                     standardToPress + shortcutHold + s.restoreDelay,
                     QStringLiteral(
                         "activation %1 + paste delay %2 -> V pressed; then V hold %3 + restore delay %4")
                         .arg(s.activationDelay)
                         .arg(s.pasteDelay)
                         .arg(shortcutHold)
                         .arg(s.restoreDelay)) +
           floorLine("layout row's route, quick timing", quickToPress,
                     quickToPress + shortcutHold + q.restoreDelay,
                     QStringLiteral(
                         "read: activation %1 + C hold %2 + copied-text poll (no fixed wait); paste: "
                         "activation %1 + paste delay %3 -> V pressed; then V hold %2 + restore delay %4")
                         .arg(q.activationDelay)
                         .arg(shortcutHold)
                         .arg(q.pasteDelay)
                         .arg(q.restoreDelay));
}

class Driver {
public:
    bool start()
    {
        // The layout row first, so its place on the panel is known.
        for (const char* key : {"mivora.quickMenu.actions", "mivora.quickMenu.order"}) {
            m_app.setSetting(QString::fromLatin1(key), QStringLiteral(R"(["layout","ai"])"));
        }
        m_app.setSetting(QStringLiteral("mivora.layoutAutoSwitch"), false);
        if (!m_keyboard.isConnected() || !waitForWindowManager() || !m_app.start() ||
            !m_app.waitForHotkeys() ||
            !m_field.start(QStringLiteral("MivoraBenchField"), QStringLiteral("Bench field")) ||
            !m_field.waitForFocus()) {
            QTextStream(stderr) << "could not start the app and the field\n" << m_app.standardError();
            return false;
        }
        QGuiApplication::clipboard()->setText(QString::fromUtf8(userClipboard));
        return true;
    }

    // Alt+Q held for a moment to the panel on screen; the time runs from the Q press.
    std::optional<double> openPanel()
    {
        runTool(QStringLiteral("xdotool"),
                {QStringLiteral("mousemove"), QStringLiteral("5"), QStringLiteral("5")});
        m_keyboard.press(QStringLiteral("Alt_L"));
        pauseFor(50ms);
        QElapsedTimer timer;
        timer.start();
        m_keyboard.press(QStringLiteral("q"));
        bool released = false;
        const auto release = [&] {
            m_keyboard.release(QStringLiteral("q"));
            m_keyboard.release(QStringLiteral("Alt_L"));
            released = true;
        };
        // The panel may come on the press or on the release; the keys go up on time either way.
        const bool shown = spinUntil(
            [&] {
                if (!released && timer.elapsed() >= personHold.count()) {
                    release();
                }
                m_panel = shownPanel();
                return m_panel.has_value();
            },
            10s);
        const double elapsed = millisecondsOf(timer);
        if (!released) {
            pauseFor(std::chrono::milliseconds(std::max<qint64>(0, personHold.count() - timer.elapsed())));
            release();
        }
        if (!shown) {
            QTextStream(stderr) << "no panel\n" << m_app.standardError();
            return std::nullopt;
        }
        return elapsed;
    }

    // Closes the panel the way the window manager's close does: it only hides.
    bool closePanel()
    {
        runTool(QStringLiteral("wmctrl"), {QStringLiteral("-c"), panelTitle});
        return spinUntil([] { return !shownPanel(); }, 10s);
    }

    // A click on the first row held for a moment; the time runs from the button press and from its release.
    std::optional<std::pair<double, double>> clickRow()
    {
        Display* display = m_keyboard.display();
        int x = 0;
        int y = 0;
        Window child = 0;
        if (!m_panel || !XTranslateCoordinates(display, *m_panel, DefaultRootWindow(display), rowX, rowY, &x,
                                               &y, &child)) {
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
                    releasedAt = millisecondsOf(timer);
                    released = true;
                }
                return m_field.text() == fixed;
            },
            10s);
        const double elapsed = millisecondsOf(timer);
        if (!released) {
            XTestFakeButtonEvent(display, 1, False, 0);
            XSync(display, False);
            releasedAt = elapsed;
        }
        if (!replaced) {
            QTextStream(stderr) << "no replacement; the field holds " << m_field.text().value_or(QString())
                                << '\n'
                                << m_app.standardError();
            return std::nullopt;
        }
        return std::pair(elapsed, elapsed - releasedAt);
    }

    // The typed text wholly selected by the field itself, which leaves PRIMARY alone so the copy route runs,
    // and the app done with the previous paste.
    bool prepare()
    {
        return m_field.setText(typed) && m_field.select(0, int(typed.size())) &&
               spinUntil([&] { return m_field.selection() == typed; }, 10s) &&
               spinUntil([] { return clipboardBytes() == userClipboard; }, 10s);
    }

private:
    X11TestClient m_keyboard;
    ResidentAppProcess m_app{QStringLiteral(MIVORA_BINARY)};
    TestFieldProcess m_field;
    std::optional<Window> m_panel;
};

QString figures(const QList<double>& samples)
{
    return QStringLiteral("p50 %1 ms  p95 %2 ms")
        .arg(percentile(samples, 0.5), 0, 'f', 1)
        .arg(percentile(samples, 0.95), 0, 'f', 1);
}

} // namespace

// The quick panel on the real resident app over a real text field of another process: Alt+Q to the panel
// on screen, and a click on its layout-fix row to the field's selection replaced. Needs a private X server
// with a window manager (tests/x11/with-xvfb.sh). Figures include a few milliseconds of polling granularity
// (one xdotool run or field query per poll). Usage: mivora_quick_panel_bench [REPETITIONS], 15 by default.
int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const int repetitions = argc > 1 ? std::max(2, QByteArray(argv[1]).toInt()) : 15;
    if (!runTool(QStringLiteral("setxkbmap"), {QStringLiteral("-layout"), QStringLiteral("us,ru")})) {
        QTextStream(stderr) << "setxkbmap failed\n";
        return 1;
    }
    Driver driver;
    if (!driver.start()) {
        return 1;
    }
    std::optional<double> firstShow;
    QList<double> laterShows;
    QList<double> pressToReplaced;
    QList<double> releaseToReplaced;
    // Each repetition: open and close once (a show), then open again and click the row.
    for (int repetition = 0; repetition < repetitions; ++repetition) {
        if (!driver.prepare()) {
            QTextStream(stderr) << "could not select the text\n";
            return 1;
        }
        const std::optional<double> shown = driver.openPanel();
        if (!shown || !driver.closePanel()) {
            return 1;
        }
        (firstShow ? laterShows.append(*shown) : void(firstShow = shown));
        pauseFor(50ms);
        const std::optional<double> again = driver.openPanel();
        if (!again) {
            return 1;
        }
        laterShows.append(*again);
        const auto replaced = driver.clickRow();
        if (!replaced) {
            return 1;
        }
        pressToReplaced.append(replaced->first);
        releaseToReplaced.append(replaced->second);
    }
    QTextStream(stdout)
        << "Quick panel, " << repetitions << " repetitions\n"
        << QStringLiteral("  Alt+Q (held %1 ms) -> panel shown, first show:  %2 ms\n")
               .arg(personHold.count())
               .arg(*firstShow, 0, 'f', 1)
        << QStringLiteral("  Alt+Q (held %1 ms) -> panel shown, later shows: ").arg(personHold.count())
        << figures(laterShows) << "  (" << laterShows.size() << " shows)\n"
        << QStringLiteral("  click \"Fix layout\" (held %1 ms), button down -> text replaced: ")
               .arg(personHold.count())
        << figures(pressToReplaced) << '\n'
        << "  click \"Fix layout\", button up -> text replaced:                 "
        << figures(releaseToReplaced) << '\n'
        << "Floors of the clipboard route's fixed sleeps:\n"
        << clipboardFloors();
    return 0;
}
