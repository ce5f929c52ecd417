#include "FakePasteboard.h"
#include "MemoryDefaultsStore.h"
#include "TestClock.h"
#include "clipboard/ClipboardHistoryService.h"
#ifdef MIVORA_BENCH_X11
#include "platform/x11/X11DisplayConnection.h"
#include "platform/x11/X11EventPump.h"
#include "platform/x11/X11Pasteboard.h"
#endif

#include <QCoreApplication>
#include <benchmark/benchmark.h>

namespace {

// A history at its largest: 1000 items of 1 KiB each.
void fillHistory(MemoryDefaultsStore& defaults, TestClock& clock)
{
    QList<ClipboardHistoryItem> items;
    for (int i = 0; i < 1000; ++i) {
        items.append(ClipboardHistoryItem::make(QStringLiteral("%1 ").arg(i, 6).leftJustified(1024, u'x'),
                                                clock.now()));
    }
    defaults.setValue(ClipboardHistoryService::storageKey(), ClipboardHistoryItem::encodeList(items));
}

// A service over that history, allowed to keep all of it for 30 days.
struct FullHistory {
    TestClock clock;
    MemoryDefaultsStore defaults;
    FakePasteboard pasteboard;
    std::unique_ptr<ClipboardHistoryService> history;

    FullHistory()
    {
        fillHistory(defaults, clock);
        history = std::make_unique<ClipboardHistoryService>(pasteboard, clock, defaults);
        MivoraSettings settings;
        settings.clipboardLimit = 1000;
        settings.clipboardDays = QStringLiteral("30");
        history->applySettings(settings);
    }
};

// One capture into a full history: trim, merge, prune by limit and days, encode and store the whole list.
void BM_CaptureIntoFullHistory(benchmark::State& state)
{
    FullHistory full;
    const QString text = QString(1024, u'y');
    int round = 0;
    for (auto _ : state) {
        full.history->record(text + QString::number(round++));
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_CaptureIntoFullHistory)->Unit(benchmark::kMillisecond);

// A capture of a 4 MiB text into a full history: how long the poll is held by a huge copy.
void BM_CaptureHugeText(benchmark::State& state)
{
    FullHistory full;
    const QString text = QStringLiteral("0123456789abcdef").repeated(256 * 1024);
    int round = 0;
    for (auto _ : state) {
        full.pasteboard.copyText(text + QString::number(round++));
        full.history->poll();
    }
}
BENCHMARK(BM_CaptureHugeText)->Unit(benchmark::kMillisecond);

// The tick that runs every 0.7 s while nothing changes.
void BM_IdlePoll(benchmark::State& state)
{
    FullHistory full;
    for (auto _ : state) {
        full.history->poll();
    }
}
BENCHMARK(BM_IdlePoll);

#ifdef MIVORA_BENCH_X11
// The same idle tick on a real X server: the change count read drains the connection without blocking.
void BM_IdlePollX11(benchmark::State& state)
{
    TestClock clock;
    X11DisplayConnection display;
    X11EventPump pump(display.get(), clock);
    X11Pasteboard pasteboard(pump);
    if (!pasteboard.isConnected()) {
        state.SkipWithError("no X server");
        return;
    }
    MemoryDefaultsStore defaults;
    ClipboardHistoryService history(pasteboard, clock, defaults);
    for (auto _ : state) {
        history.poll();
    }
}
BENCHMARK(BM_IdlePollX11);
#endif

// Start-up cost of a full history: decoding the stored blob.
void BM_LoadFullHistory(benchmark::State& state)
{
    TestClock clock;
    MemoryDefaultsStore defaults;
    FakePasteboard pasteboard;
    fillHistory(defaults, clock);
    for (auto _ : state) {
        ClipboardHistoryService history(pasteboard, clock, defaults);
        benchmark::DoNotOptimize(history.items().size());
    }
}
BENCHMARK(BM_LoadFullHistory)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
