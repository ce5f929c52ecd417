#include "AwaitTask.h"
#include "Percentile.h"
#include "TestFieldProcess.h"
#include "X11ExchangeStack.h"
#include "core/PasteboardTiming.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTextStream>
#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>

using namespace std::chrono_literals;

namespace {

// Every synthetic shortcut is held this long between its press and its release (sendShortcut).
constexpr int shortcutHold = 20;

struct Floor {
    int milliseconds = 0;
    QString composition;
};

// With selection of everything before the copy, no modifier held (so the modifier wait costs nothing) and
// the first copy attempt finding the text; the restore delay plays no part in a read.
Floor readFloor(const PasteboardTiming& t)
{
    if (t.copyDelay == 0) {
        return {t.activationDelay + shortcutHold + t.selectAllDelay + shortcutHold,
                QStringLiteral("activation %1 + A hold %2 + select-all %3 + C hold %2 + copied-text poll "
                               "(2 ms steps, no fixed wait)")
                    .arg(t.activationDelay)
                    .arg(shortcutHold)
                    .arg(t.selectAllDelay)};
    }
    return {
        t.activationDelay + shortcutHold + t.selectAllDelay + shortcutHold + t.copyDelay,
        QStringLiteral("activation %1 + A hold %2 + select-all %3 + C hold %2 + copy delay %4 (attempt 0)")
            .arg(t.activationDelay)
            .arg(shortcutHold)
            .arg(t.selectAllDelay)
            .arg(t.copyDelay)};
}

Floor pasteFloor(const PasteboardTiming& t)
{
    return {t.activationDelay + t.pasteDelay + shortcutHold + t.restoreDelay,
            QStringLiteral("activation %1 + paste delay %2 + V hold %3 + restore delay %4")
                .arg(t.activationDelay)
                .arg(t.pasteDelay)
                .arg(shortcutHold)
                .arg(t.restoreDelay)};
}

struct Result {
    QString path;
    QString timing;
    Floor floor;
    QList<double> samples;
    int failures = 0;
};

const QString selectedText = QStringLiteral("  selected words  ");
const QString pastedText = QStringLiteral("pasted result");

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
        if (!spinUntil(
                [] { return runTool(QStringLiteral("wmctrl"), {QStringLiteral("-m")}).has_value(); })) {
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

    // One untimed round first, so first-use costs (connections, font loading in the field) stay out.
    Result measure(const QString& path, const QString& timingName, const Floor& floor,
                   const std::function<bool()>& prepare, const std::function<QCoro::Task<>()>& operation,
                   const std::function<bool()>& landed, int iterations)
    {
        Result result{path, timingName, floor, {}, 0};
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
            const double elapsed = double(timer.nsecsElapsed()) / 1e6;
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
        return measure(
            QStringLiteral("read"), timingName, readFloor(timing),
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
        return measure(
            QStringLiteral("paste"), timingName, pasteFloor(timing),
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

private:
    // A member rather than a coroutine lambda, so the frame never refers to a closure that may be gone.
    QCoro::Task<> readInto(std::shared_ptr<QString> text, PasteboardTiming timing)
    {
        *text = co_await service.readSelectedTextTransient(true, false, timing);
    }

    TestFieldProcess m_field;
};

void print(const QList<Result>& results, int iterations)
{
    QTextStream out(stdout);
    out << "Exchange latency against the test text field, " << iterations
        << " timed iterations per row (after one untimed round), milliseconds\n\n";
    out << QStringLiteral("%1 %2 %3 %4 %5 %6 %7 %8 %9\n")
               .arg(QStringLiteral("path"), -6)
               .arg(QStringLiteral("timing"), -9)
               .arg(QStringLiteral("ok"), 6)
               .arg(QStringLiteral("p50"), 8)
               .arg(QStringLiteral("p95"), 8)
               .arg(QStringLiteral("min"), 8)
               .arg(QStringLiteral("max"), 8)
               .arg(QStringLiteral("floor"), 6)
               .arg(QStringLiteral("p50-floor"), 10);
    for (const Result& r : results) {
        const bool any = !r.samples.isEmpty();
        const auto figure = [&](double value) {
            return any ? QString::number(value, 'f', 1) : QStringLiteral("-");
        };
        const double p50 = any ? percentile(r.samples, 0.5) : 0;
        out << QStringLiteral("%1 %2 %3 %4 %5 %6 %7 %8 %9\n")
                   .arg(r.path, -6)
                   .arg(r.timing, -9)
                   .arg(QStringLiteral("%1/%2").arg(r.samples.size()).arg(r.samples.size() + r.failures), 6)
                   .arg(figure(p50), 8)
                   .arg(figure(any ? percentile(r.samples, 0.95) : 0), 8)
                   .arg(figure(any ? *std::min_element(r.samples.begin(), r.samples.end()) : 0), 8)
                   .arg(figure(any ? *std::max_element(r.samples.begin(), r.samples.end()) : 0), 8)
                   .arg(r.floor.milliseconds, 6)
                   .arg(figure(p50 - r.floor.milliseconds), 10);
    }
    out << "\nFloor = the sleeps the algorithm mandates on that path:\n";
    for (const Result& r : results) {
        out << "  " << r.path << ' ' << r.timing << " = " << r.floor.milliseconds
            << " ms: " << r.floor.composition << '\n';
    }
}

} // namespace

// The two clipboard paths of the exchange against a real X client. Needs a private X server with a window
// manager (tests/x11/with-xvfb.sh). Usage: mivora_exchange_latency_bench [ITERATIONS], 20 by default.
int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const int iterations = argc > 1 ? std::max(1, QByteArray(argv[1]).toInt()) : 20;
    Bench bench;
    if (!bench.start()) {
        return 1;
    }
    const QString standard = QStringLiteral("standard");
    const QString quick = QStringLiteral("quick");
    const QList<Result> results{
        bench.read(standard, PasteboardTiming::standardTiming(), iterations),
        bench.read(quick, PasteboardTiming::quickTiming(), iterations),
        bench.paste(standard, PasteboardTiming::standardTiming(), iterations),
        bench.paste(quick, PasteboardTiming::quickTiming(), iterations),
    };
    print(results, iterations);
    const bool allLanded =
        std::all_of(results.begin(), results.end(), [](const Result& r) { return r.failures == 0; });
    return allLanded ? 0 : 1;
}
