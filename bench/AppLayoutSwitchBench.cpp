// A window with a layout rule brought forward to the keyboard group switched to its layout, on the real
// resident app with a us,ru keyboard, against two windows of other processes (test text fields): one with a
// rule for Russian, one without. Each round activates the plain window and puts the group back to us by hand
// (as the user's layout key does, from another client), then activates the ruled one through
// _NET_ACTIVE_WINDOW and times until the window is in front and until the server's group is Russian. The
// figure that matters is the span between the two, activation to input source switched, printed next to
// the service's first repeat, which the switch at activation has to beat.
// Needs a private X server with a window manager (tests/x11/with-xvfb.sh) and setxkbmap.
// Usage: mivora_app_layout_bench [ACTIVATIONS], 30 by default.
#include "BenchMain.h"
#include "DesktopConnection.h"
#include "DesktopTools.h"
#include "ElapsedTime.h"
#include "EventLoopWait.h"
#include "ResidentAppProcess.h"
#include "SampleFigures.h"
#include "TestFieldProcess.h"
#include "core/AppLayoutRule.h"
#include "platform/x11/X11ApplicationWorkspace.h"
#include "platform/x11/X11InputSources.h"

#include <QElapsedTimer>
#include <QTextStream>
#include <QUuid>

using namespace std::chrono_literals;

namespace {

// The service's first repeat after an activation; it lives inside the service, so it is restated here.
constexpr int firstRepeatMs = 150;
constexpr int labelWidth = 33;

QTextStream out(stdout);
QTextStream err(stderr);

class Driver {
public:
    bool start()
    {
        if (!m_keyboard.isConnected() || !waitForWindowManager()) {
            err << "needs an X server with an EWMH window manager\n";
            return false;
        }
        if (!useUsAndRuLayouts()) {
            return false;
        }
        const QList<AppLayoutRule> rules{{QUuid::createUuid(), QStringLiteral("MivoraRuledField"),
                                          QStringLiteral("Ruled"), QString(), QStringLiteral("Russian"),
                                          true}};
        m_app.setSetting(QStringLiteral("mivora.appLayoutSwitching.enabled"), true);
        m_app.setSetting(QStringLiteral("mivora.appLayoutSwitching.rules"), AppLayoutRule::encodeList(rules));
        if (!m_app.start() || !m_app.waitForHotkeys() ||
            !m_ruled.start(QStringLiteral("MivoraRuledField"), QStringLiteral("Ruled")) ||
            !m_plain.start(QStringLiteral("MivoraPlainField"), QStringLiteral("Plain"))) {
            err << "could not start the app and the fields\n" << m_app.standardError();
            return false;
        }
        return true;
    }

    bool run(int activations)
    {
        QList<double> toFront;
        QList<double> toSwitched;
        QList<double> activationToSwitched;
        for (int round = 0; round < activations; ++round) {
            if (!resetOnPlain()) {
                err << "round " << round << ": the plain window did not keep us\n" << m_app.standardError();
                return false;
            }
            QElapsedTimer timer;
            timer.start();
            if (!m_workspace.activate(m_ruled.processIdentifier(), 0)) {
                err << "round " << round << ": could not ask for the ruled window\n";
                return false;
            }
            // The window manager's part and the app's part apart: whichever comes first, both are waited for.
            std::optional<double> front;
            std::optional<double> switched;
            spinUntil(
                [&] {
                    const double now = millisecondsSince(timer);
                    if (!front && isFront(m_ruled)) {
                        front = now;
                    }
                    if (!switched && group() == QStringLiteral("ru")) {
                        switched = now;
                    }
                    return front && switched;
                },
                5s);
            if (!front || !switched) {
                err << "round " << round << ": "
                    << (front ? "no switch to ru" : "the ruled window never came") << '\n'
                    << m_app.standardError();
                return false;
            }
            toFront.append(*front);
            toSwitched.append(*switched);
            activationToSwitched.append(*switched - *front);
            // Past the repeats, so the next round's own activation is what is timed.
            pauseFor(900ms);
        }
        const auto line = [](const QString& label, const QList<double>& samples) {
            return QStringLiteral("  %1 %2  %3\n")
                .arg(label.leftJustified(labelWidth), medianAndTail(samples, 6), rangeOf(samples));
        };
        out << "Ruled window activated (_NET_ACTIVE_WINDOW), " << activations
            << " activations, alternating with a window without a rule reset to us by hand\n"
            << line(QStringLiteral("request -> window in front:"), toFront)
            << line(QStringLiteral("request -> XKB group Russian:"), toSwitched)
            << line(QStringLiteral("activation -> XKB group Russian:"), activationToSwitched)
            << QStringLiteral("  %1 %2 ms after activation\n")
                   .arg(QStringLiteral("service's first repeat:").leftJustified(labelWidth))
                   .arg(firstRepeatMs)
            << "Figures include up to ~2 ms of polling granularity.\n";
        return true;
    }

private:
    // The plain window in front with the group at us, and still us a while later: nothing switched back.
    bool resetOnPlain()
    {
        if (!m_workspace.activate(m_plain.processIdentifier(), 0) ||
            !spinUntil([&] { return isFront(m_plain); }, 5s)) {
            return false;
        }
        for (const PlatformInputSource& source : m_keyboard.inputSources()) {
            if (source.id == QStringLiteral("us") && m_keyboard.selectSource(source.ref) != 0) {
                return false;
            }
        }
        if (!spinUntil([&] { return group() == QStringLiteral("us"); }, 2s)) {
            return false;
        }
        pauseFor(300ms);
        return group() == QStringLiteral("us");
    }

    bool isFront(const TestFieldProcess& field)
    {
        const std::optional<RunningApplication> front = m_workspace.frontmostApplication();
        return front && front->processIdentifier == field.processIdentifier();
    }

    // The active group's identifier, "us" or "ru".
    QString group()
    {
        const std::optional<PlatformInputSource> current = m_keyboard.currentSource();
        return current && current->id ? *current->id : QString();
    }

    X11InputSources m_keyboard;
    DesktopConnection m_desktop;
    X11ApplicationWorkspace m_workspace{m_desktop.pump};
    ResidentAppProcess m_app{QStringLiteral(MIVORA_BINARY)};
    TestFieldProcess m_ruled;
    TestFieldProcess m_plain;
};

} // namespace

int main(int argc, char** argv)
{
    return runBenchmark<Driver>(argc, argv, 30, 1);
}
