#include "AwaitTask.h"
#include "BenchMain.h"
#include "ClipboardRouteFloor.h"
#include "ElapsedTime.h"
#include "EventLoopWait.h"
#include "SampleFigures.h"
#include "TestFieldProcess.h"
#include "X11ExchangeStack.h"

#include <QElapsedTimer>
#include <QTextStream>
#include <algorithm>
#include <functional>
#include <memory>

using namespace std::chrono_literals;

namespace {

struct Result {
    QString path;
    QString timing;
    int floor = 0;
    QString floorSteps;
    QList<double> samples;
    int failures = 0;
};

const QString selectedText = QStringLiteral("  selected words  ");
const QString pastedText = QStringLiteral("pasted result");

void print(const QList<Result>& results, int iterations)
{
    QTextStream out(stdout);
    out << "Exchange latency against the test text field, " << iterations
        << " timed iterations per row (after one untimed round), milliseconds\n\n";
    out << QStringLiteral("path").leftJustified(6) << ' ' << QStringLiteral("timing").leftJustified(9) << ' '
        << QStringLiteral("ok").rightJustified(6) << ' ' << figureHeader(8) << ' '
        << QStringLiteral("floor").rightJustified(6) << ' ' << QStringLiteral("p50-floor").rightJustified(10)
        << '\n';
    for (const Result& r : results) {
        const QString aboveFloor = r.samples.isEmpty()
                                       ? QStringLiteral("-")
                                       : QString::number(percentile(r.samples, 0.5) - r.floor, 'f', 1);
        out << r.path.leftJustified(6) << ' ' << r.timing.leftJustified(9) << ' '
            << QStringLiteral("%1/%2")
                   .arg(r.samples.size())
                   .arg(r.samples.size() + r.failures)
                   .rightJustified(6)
            << ' ' << figureCells(r.samples, 8, 1) << ' ' << QString::number(r.floor).rightJustified(6) << ' '
            << aboveFloor.rightJustified(10) << '\n';
    }
    out << "\nFloor = the sleeps the algorithm mandates on that path:\n";
    for (const Result& r : results) {
        out << "  " << r.path << ' ' << r.timing << " = " << r.floor << " ms: " << r.floorSteps << '\n';
    }
}

// The stack of the resident app's exchange, with this process as the clipboard owner and the real window
// manager and XTest between it and the field.
class Bench : private X11ExchangeStack {
public:
    bool start()
    {
        if (!display || !pasteboard.isConnected()) {
            QTextStream(stderr) << "needs an X server with XFixes and XTest\n";
            return false;
        }
        if (!waitForWindowManager()) {
            QTextStream(stderr) << "needs an EWMH window manager\n";
            return false;
        }
        if (!m_field.start(QStringLiteral("MivoraLatencyField"), QStringLiteral("Exchange latency"),
                           selectedText) ||
            !spinUntil([&] { return focus.rememberedProcessIdentifier() == m_field.processIdentifier(); }) ||
            !m_field.waitForFocus()) {
            QTextStream(stderr) << "could not start the text field or give it the focus\n";
            return false;
        }
        pasteboard.restore({{{{{QStringLiteral("UTF8_STRING"), QByteArrayLiteral("kept")}}}}});
        return true;
    }

    // Every path under both timings; true when every operation landed.
    bool run(int iterations)
    {
        const QString standard = QStringLiteral("standard");
        const QString quick = QStringLiteral("quick");
        const QList<Result> results{
            read(standard, PasteboardTiming::standardTiming(), iterations),
            read(quick, PasteboardTiming::quickTiming(), iterations),
            paste(standard, PasteboardTiming::standardTiming(), iterations),
            paste(quick, PasteboardTiming::quickTiming(), iterations),
        };
        print(results, iterations);
        return std::all_of(results.begin(), results.end(), [](const Result& r) { return r.failures == 0; });
    }

private:
    // One untimed round first, so first-use costs (connections, font loading in the field) stay out.
    Result measure(const QString& path, const QString& timingName, int floor, const QString& floorSteps,
                   const std::function<bool()>& prepare, const std::function<QCoro::Task<>()>& operation,
                   const std::function<bool()>& landed, int iterations)
    {
        Result result{path, timingName, floor, floorSteps, {}, 0};
        for (int round = -1; round < iterations; ++round) {
            if (!prepare()) {
                result.failures += round < 0 ? 0 : 1;
                continue;
            }
            QElapsedTimer timer;
            timer.start();
            bool ok = true;
            try {
                AwaitTask::run(operation());
            } catch (const std::exception&) {
                ok = false;
            }
            const double elapsed = millisecondsSince(timer);
            ok = ok && landed();
            if (round < 0) {
                continue;
            }
            if (ok) {
                result.samples.append(elapsed);
            } else {
                ++result.failures;
            }
        }
        return result;
    }

    Result read(const QString& timingName, PasteboardTiming timing, int iterations)
    {
        auto text = std::make_shared<QString>();
        // The service selects everything before the copy, as the benchmark asks it to.
        const ClipboardRouteFloor floor = ClipboardRouteFloor::read(timing, true);
        return measure(
            QStringLiteral("read"), timingName, floor.toRead(), floor.derivation(),
            [&] {
                text->clear();
                return m_field.setText(selectedText);
            },
            [this, text, timing] { return readInto(text, timing); },
            [&] {
                return *text == selectedText && AwaitTask::run(pasteboard.string()) == QStringLiteral("kept");
            },
            iterations);
    }

    Result paste(const QString& timingName, PasteboardTiming timing, int iterations)
    {
        const ClipboardRouteFloor floor = ClipboardRouteFloor::paste(timing);
        return measure(
            QStringLiteral("paste"), timingName, floor.toRestored(), floor.derivation(),
            [&] {
                // The field's "set" command cannot carry an empty text, so the old text is selected for the
                // paste to replace.
                return m_field.setText(QStringLiteral("old")) && m_field.select(0, 3);
            },
            [this, timing] { return service.pasteTransient(pastedText, std::nullopt, timing); },
            [&] {
                return m_field.text() == pastedText &&
                       AwaitTask::run(pasteboard.string()) == QStringLiteral("kept");
            },
            iterations);
    }

    // A member rather than a coroutine lambda, so the frame never refers to a closure that may be gone.
    QCoro::Task<> readInto(std::shared_ptr<QString> text, PasteboardTiming timing)
    {
        *text = co_await service.readSelectedTextTransient(true, false, timing);
    }

    TestFieldProcess m_field;
};

} // namespace

// The two clipboard paths of the exchange against a real X client. Needs a private X server with a window
// manager (tests/x11/with-xvfb.sh). Usage: mivora_exchange_latency_bench [ITERATIONS], 20 by default.
int main(int argc, char** argv)
{
    return runBenchmark<Bench>(argc, argv, 20, 1);
}
