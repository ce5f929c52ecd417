#include "AppBesideField.h"
#include "BenchMain.h"
#include "DesktopTools.h"
#include "ElapsedTime.h"
#include "EventLoopWait.h"
#include "SampleFigures.h"

#include <QElapsedTimer>
#include <QTextStream>

using namespace std::chrono_literals;

namespace {

struct Route {
    QString name;
    QStringList chord;
    QString panelTitle;
};

class Driver {
public:
    bool start()
    {
        m_desk.answerEveryRequestWith(QStringLiteral("See you there!"));
        m_desk.app().setSetting(QStringLiteral("mivora.layoutAutoSwitch"), false);
        return useUsAndRuLayouts() && m_desk.start();
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
    // Press to panel on screen, the first show apart from the later ones; and press to the backend's
    // request, which the panel makes after its selection read.
    bool measure(const Route& route, int presses)
    {
        std::optional<double> first;
        QList<double> later;
        QList<double> asked;
        for (int press = 0; press < presses; ++press) {
            // Selected from the keyboard, so the field owns PRIMARY and the quiet read takes it.
            if (!m_desk.selectFromKeyboard(QStringLiteral("Are you coming tonight?"))) {
                QTextStream(stderr) << route.name << ": could not select the message\n";
                return false;
            }
            const qsizetype requestsBefore = m_desk.backend().requests().size();
            QElapsedTimer timer;
            timer.start();
            m_desk.keyboard().type(route.chord);
            std::optional<double> askedAt;
            if (!spinUntil(
                    [&] {
                        if (!askedAt && m_desk.backend().requests().size() > requestsBefore) {
                            askedAt = millisecondsSince(timer);
                        }
                        return windowShown(route.panelTitle);
                    },
                    10s)) {
                QTextStream(stderr) << route.name << ": no panel\n" << m_desk.app().standardError();
                return false;
            }
            const double shown = millisecondsSince(timer);
            (first ? later.append(shown) : void(first = shown));
            if (!spinUntil([&] { return m_desk.backend().requests().size() > requestsBefore; }, 10s)) {
                QTextStream(stderr) << route.name << ": the backend was never asked\n";
                return false;
            }
            asked.append(askedAt.value_or(millisecondsSince(timer)));
            // Let the answer land before the panel goes, so the next press finds it idle.
            pauseFor(200ms);
            if (!closeWindow(route.panelTitle)) {
                QTextStream(stderr) << route.name << ": the panel did not close\n";
                return false;
            }
        }
        QTextStream(stdout)
            << route.name << ", " << presses << " presses\n"
            << QStringLiteral("  press -> panel shown, first show:  %1 ms\n").arg(*first, 0, 'f', 1)
            << "  press -> panel shown, later shows: " << medianAndTail(later) << '\n'
            << "  press -> backend asked:           " << medianAndTail(asked) << '\n';
        return true;
    }

    AppBesideField m_desk{QStringLiteral(MIVORA_BINARY)};
};

} // namespace

// Hotkey press to the AI panels on screen on the real resident app, with a loopback backend that answers
// at once. Needs a private X server with a window manager (tests/x11/with-xvfb.sh). Figures include a few
// milliseconds of polling granularity (one xdotool run per poll). Usage: mivora_ai_panel_latency_bench
// [PRESSES], 20 by default.
int main(int argc, char** argv)
{
    return runBenchmark<Driver>(argc, argv, 20, 2);
}
