// A tiling chord, timed as a person meets it: Control+Alt+Shift+Left, then +Right, alternating, held for a
// moment, on the real program and a window of another process, from the key's press to the window standing
// still at its new half of the screen. Next to it in the same run, interleaved press by press, the window
// manager's own share: the bench sends the same three _NET_MOVERESIZE_WINDOW requests the program sends for
// one placement, to the same window, and times them to the same settled frame.
// Needs a private X server with a window manager (tests/x11/with-xvfb.sh).
// Usage: mivora_tiling_latency_bench [PRESSES], 30 by default.
#include "AppBesideField.h"
#include "BenchMain.h"
#include "DesktopConnection.h"
#include "EventLoopWait.h"
#include "HeldChord.h"
#include "SampleFigures.h"
#include "platform/x11/X11DesktopWindows.h"

#include <QElapsedTimer>
#include <QTextStream>
#include <functional>

using namespace std::chrono_literals;

namespace {

// The private server is 1600 by 1000 with no panel, so the halves are those of the whole screen.
const QRect leftHalf(0, 0, 800, 1000);
const QRect rightHalf(800, 0, 800, 1000);

// How long a person holds the arrow, and the gap between one modifier and the next.
constexpr auto keyHold = 80ms;
constexpr auto modifierGap = 30ms;
// A frame counts as settled once it has stayed at the target this long; longer than the program's own wait
// for the window manager's notices to stop, so a late correction would be seen.
constexpr qint64 stillNs = 150'000'000;
constexpr qint64 giveUpNs = 5'000'000'000;

struct Sample {
    double firstChangeMs = 0;
    double settledMs = 0;
};

struct Series {
    QList<double> firstChange;
    QList<double> settled;

    void add(const Sample& sample)
    {
        firstChange.append(sample.firstChangeMs);
        settled.append(sample.settledMs);
    }
};

QString line(const QString& label, const QList<double>& values)
{
    return QStringLiteral("  %1 %2  %3\n").arg(label, -34).arg(medianAndTail(values)).arg(rangeOf(values));
}

class Driver {
public:
    bool start()
    {
        if (!m_desk.start(QStringLiteral("MivoraBenchTiling"), QStringLiteral("Bench tiling"))) {
            return false;
        }
        const QString window = m_desk.field().window().value_or(QString());
        m_window = window.toULongLong();
        // A window the size of a small editor, not of a bare text field.
        return m_window != 0 &&
               runTool(QStringLiteral("xdotool"), {"windowsize", "--sync", window, "420", "240"}).has_value();
    }

    // The chord toward the target's half, from the arrow's press to the frame settled.
    std::optional<Sample> chord(const QRect& target)
    {
        HeldChord chord(m_desk.keyboard(),
                        {QStringLiteral("Control_L"), QStringLiteral("Alt_L"), QStringLiteral("Shift_L")},
                        target == leftHalf ? QStringLiteral("Left") : QStringLiteral("Right"), keyHold,
                        modifierGap);
        chord.pressModifiers();
        const std::optional<Sample> sample = timeToSettle(target, [&] { chord.pressKey(); });
        // Never start the next press with this one's keys still down.
        chord.waitReleased();
        return sample;
    }

    // The program's requests for one placement, sent from here.
    std::optional<Sample> direct(const QRect& target)
    {
        return timeToSettle(target, [&] {
            m_windows.setPosition(m_window, target.topLeft());
            m_windows.setSize(m_window, target.size());
            m_windows.setPosition(m_window, target.topLeft());
        });
    }

    QString frameText()
    {
        const QRect f = m_windows.frame(m_window).value_or(QRect());
        return QStringLiteral("%1,%2 %3x%4").arg(f.x()).arg(f.y()).arg(f.width()).arg(f.height());
    }

    QString standardError() { return m_desk.app().standardError(); }

    bool run(int presses)
    {
        // The first chord takes the window from where it opened; it is not one of the timed presses.
        if (!chord(leftHalf)) {
            QTextStream(stderr) << "the first chord did not tile the window; it stands at " << frameText()
                                << '\n'
                                << standardError();
            return false;
        }
        Series chords;
        Series directs;
        QRect target = rightHalf;
        const auto flip = [&] { target = target == leftHalf ? rightHalf : leftHalf; };
        // Chord and direct request take turns, each moving the window to the other half, so a busy moment of
        // the machine falls on both alike.
        for (int press = 0; press < presses; ++press) {
            const std::optional<Sample> byChord = chord(target);
            if (!byChord) {
                QTextStream(stderr) << "chord " << press << ": the window stands at " << frameText() << '\n'
                                    << standardError();
                return false;
            }
            chords.add(*byChord);
            flip();
            const std::optional<Sample> byRequest = direct(target);
            if (!byRequest) {
                QTextStream(stderr) << "request " << press << ": the window stands at " << frameText()
                                    << '\n';
                return false;
            }
            directs.add(*byRequest);
            flip();
        }
        QTextStream out(stdout);
        out << "Tiling a window of another process between the screen's halves, " << presses
            << " times each way, interleaved; the arrow held " << keyHold.count()
            << " ms, the frame polled every "
            << "~2 ms and settled once still for " << stillNs / 1'000'000 << " ms.\n"
            << "Chord Control+Alt+Shift+Left/Right on the program, from the arrow's press:\n"
            << line(QStringLiteral("press -> frame first moves"), chords.firstChange)
            << line(QStringLiteral("press -> frame settled"), chords.settled)
            << "Window manager alone: the program's three _NET_MOVERESIZE_WINDOW requests sent by the "
               "bench:\n"
            << line(QStringLiteral("request -> frame first moves"), directs.firstChange)
            << line(QStringLiteral("request -> frame settled"), directs.settled)
            << QStringLiteral("The program's share (difference of medians, press -> settled): %1 ms\n")
                   .arg(percentile(chords.settled, 0.5) - percentile(directs.settled, 0.5), 0, 'f', 1);
        return true;
    }

private:
    // Starts the action and polls the frame (every ~2 ms) until it has stood still at the target.
    std::optional<Sample> timeToSettle(const QRect& target, const std::function<void()>& action)
    {
        const std::optional<QRect> before = m_windows.frame(m_window);
        QElapsedTimer timer;
        timer.start();
        action();
        std::optional<qint64> changedAt;
        std::optional<qint64> reachedAt;
        const bool settled = spinUntil(
            [&] {
                const qint64 now = timer.nsecsElapsed();
                const std::optional<QRect> frame = m_windows.frame(m_window);
                if (!changedAt && frame != before) {
                    changedAt = now;
                }
                if (frame != target) {
                    reachedAt.reset();
                } else if (!reachedAt) {
                    reachedAt = now;
                }
                return reachedAt && now - *reachedAt >= stillNs;
            },
            std::chrono::milliseconds(giveUpNs / 1'000'000));
        if (!settled || !changedAt || !reachedAt) {
            return std::nullopt;
        }
        return Sample{double(*changedAt) / 1e6, double(*reachedAt) / 1e6};
    }

    AppBesideField m_desk{QStringLiteral(MIVORA_BINARY)};
    DesktopConnection m_desktop;
    X11DesktopWindows m_windows{m_desktop.pump};
    DesktopWindows::WindowId m_window = 0;
};

} // namespace

int main(int argc, char** argv)
{
    return runBenchmark<Driver>(argc, argv, 30, 1);
}
