#include "AppBesideField.h"
#include "BenchMain.h"
#include "DesktopTools.h"
#include "ElapsedTime.h"
#include "EventLoopWait.h"
#include "PaintedWindow.h"
#include "SampleFigures.h"

#include <QElapsedTimer>
#include <QTextStream>
#include <optional>

using namespace std::chrono_literals;

namespace {

// A text cursor blinking in a pane may part two readings of a settled panel by this many pixels; a reply
// written or gone parts them by hundreds.
constexpr qsizetype cursorPixels = 64;

struct Route {
    QString name;
    QStringList chord;
    QString panelTitle;
};

// The moments of one press, in milliseconds from the chord typed.
struct PressTimes {
    std::optional<double> painted;
    std::optional<double> asked;
    std::optional<double> answered;
    std::optional<double> replyPainted;
};

struct RouteSamples {
    std::optional<double> firstPainted;
    QList<double> laterPainted;
    QList<double> asked;
    QList<double> backendOwn;
    QList<double> answeredToReply;
    QList<double> pressToReply;
    QList<double> overhead;
};

class Driver {
public:
    bool start()
    {
        m_desk.answerEveryRequestWith(QStringLiteral("See you there!"));
        m_desk.app().setSetting(QStringLiteral("mivora.layoutAutoSwitch"), false);
        if (!useUsAndRuLayouts() || !m_desk.start()) {
            return false;
        }
        // The panels open beside the pointer; in the top left corner they stay clear of the status overlay,
        // which would otherwise show through in their pixels.
        runTool(QStringLiteral("xdotool"),
                {QStringLiteral("mousemove"), QStringLiteral("5"), QStringLiteral("5")});
        return true;
    }

    bool run(int presses)
    {
        const Route reply{QStringLiteral("Reply (Super+Alt+1) -> assistant"),
                          {QStringLiteral("Super_L"), QStringLiteral("Alt_L"), QStringLiteral("1")},
                          QStringLiteral("AI assistant")};
        const Route preview{QStringLiteral("Translation preview (Alt+R)"),
                            {QStringLiteral("Alt_L"), QStringLiteral("r")},
                            QStringLiteral("Translation")};
        return measure(reply, presses) && measure(preview, presses);
    }

private:
    // One press: chord to the panel painted, to the backend asked and answered (the loopback backend answers
    // at once, in this process), and, once a settled panel with the reply is known, to the panel looking like
    // it again.
    std::optional<PressTimes> press(const Route& route, const QByteArray& settled)
    {
        Display* display = m_desk.keyboard().display();
        PressTimes times;
        QElapsedTimer timer;
        const QMetaObject::Connection asked =
            QObject::connect(&m_desk.backend(), &ScriptedHttpServer::requestReceived,
                             [&] { times.asked = times.asked.value_or(millisecondsSince(timer)); });
        const QMetaObject::Connection answered =
            QObject::connect(&m_desk.backend(), &ScriptedHttpServer::replied,
                             [&] { times.answered = times.answered.value_or(millisecondsSince(timer)); });
        timer.start();
        m_desk.keyboard().type(route.chord);
        spinUntil(
            [&] {
                if (!times.painted && windowPainted(display, route.panelTitle)) {
                    times.painted = millisecondsSince(timer);
                }
                // The reply cannot be on screen before the backend gave it.
                if (times.answered && !settled.isEmpty() && !times.replyPainted &&
                    differingPixels(windowPixels(display, viewableWindow(display, route.panelTitle)),
                                    settled) <= cursorPixels) {
                    times.replyPainted = millisecondsSince(timer);
                }
                return times.painted && times.answered && (settled.isEmpty() || times.replyPainted);
            },
            10s);
        QObject::disconnect(asked);
        QObject::disconnect(answered);
        if (!times.painted || !times.asked || !times.answered) {
            QTextStream(stderr) << route.name
                                << (times.painted ? ": the backend was never asked\n" : ": no panel\n")
                                << m_desk.app().standardError();
            return std::nullopt;
        }
        if (!settled.isEmpty() && !times.replyPainted) {
            QTextStream(stderr) << route.name << ": the panel never showed the reply as it settled before\n";
            return std::nullopt;
        }
        return times;
    }

    bool measure(const Route& route, int presses)
    {
        Display* display = m_desk.keyboard().display();
        RouteSamples samples;
        QByteArray settled;
        for (int round = 0; round < presses; ++round) {
            // Selected from the keyboard, so the field owns PRIMARY and the quiet read takes it.
            if (!m_desk.selectFromKeyboard(QStringLiteral("Are you coming tonight?"))) {
                QTextStream(stderr) << route.name << ": could not select the message\n";
                return false;
            }
            const std::optional<PressTimes> times = press(route, settled);
            if (!times) {
                return false;
            }
            (samples.firstPainted ? samples.laterPainted.append(*times->painted)
                                  : void(samples.firstPainted = times->painted));
            samples.asked.append(*times->asked);
            const double backendOwn = *times->answered - *times->asked;
            samples.backendOwn.append(backendOwn);
            if (times->replyPainted) {
                samples.answeredToReply.append(*times->replyPainted - *times->answered);
                samples.pressToReply.append(*times->replyPainted);
                samples.overhead.append(*times->replyPainted - backendOwn);
            }
            if (settled.isEmpty()) {
                // The first press shows what the panel looks like with the reply; every later one is timed to
                // that. The same message, reply and place make the same pixels.
                pauseFor(500ms);
                settled = windowPixels(display, viewableWindow(display, route.panelTitle));
            }
            if (!closeWindow(route.panelTitle)) {
                QTextStream(stderr) << route.name << ": the panel did not close\n";
                return false;
            }
        }
        QTextStream(stdout)
            << route.name << ", " << presses << " presses\n"
            << QStringLiteral("  press -> panel painted, first show:   %1 ms\n")
                   .arg(*samples.firstPainted, 0, 'f', 1)
            << "  press -> panel painted, later shows:  " << medianAndTail(samples.laterPainted) << '\n'
            << "  press -> backend asked:               " << medianAndTail(samples.asked) << '\n'
            << "  backend's own time, asked -> answered: " << medianAndTail(samples.backendOwn) << '\n'
            << "  backend answered -> answer painted:   " << medianAndTail(samples.answeredToReply) << '\n'
            << "  press -> answer painted:              " << medianAndTail(samples.pressToReply) << '\n'
            << "  overhead of the panel route (press -> answer painted, less the backend's own time): "
            << medianAndTail(samples.overhead) << '\n';
        return true;
    }

    AppBesideField m_desk{QStringLiteral(MIVORA_BINARY)};
};

} // namespace

// Hotkey press to the AI panels painted on the real resident app, and on to the backend's answer (the reply,
// the translation) painted in them, with a loopback backend in this process that answers at once; the route's
// overhead is the press to the answer painted less the backend's own time. The answer is timed from the
// second press on (the first shows what the settled panel looks like). Needs a private X server with a window
// manager (tests/x11/with-xvfb.sh). Figures include up to 2 ms of polling granularity. Usage:
// mivora_ai_panel_latency_bench [PRESSES], 20 by default.
int main(int argc, char** argv)
{
    return runBenchmark<Driver>(argc, argv, 20, 2);
}
