// Layout fix throughput on a 1 MiB mixed text, next to a plain per-UTF-16-unit table lookup as the floor
// that a grapheme-unaware converter would reach.

#include "core/MivoraSettings.h"
#include "platform/InputSourceProvider.h"
#include "text/KeyboardLayoutService.h"

#include <QString>
#include <QStringList>
#include <array>
#include <benchmark/benchmark.h>
#include <cstdint>
#include <memory>

namespace {

// A platform without input sources: the fix runs on the fixed tables, the road every fix ends on.
class NoInputSources : public InputSourceProvider {
public:
    QList<PlatformInputSource> inputSources() override { return {}; }
    std::optional<PlatformInputSource> currentSource() override { return std::nullopt; }
    std::int32_t selectSource(const InputSourceRef&) override { return -1; }
    std::optional<QString> translateKey(const InputSourceRef&, int, bool) override { return std::nullopt; }
    ListenerSubscription subscribeToSourceChanges(std::function<void()>) override { return {}; }
};

// Words typed in the wrong layout, Cyrillic words, emoji with ZWJ and flags, decomposed letters.
QString mixedText(qsizetype utf8Bytes)
{
    const QStringList pieces = {
        QStringLiteral("ghbdtn"),
        QStringLiteral("vbh"),
        QStringLiteral("hello"),
        QStringLiteral("привет"),
        QStringLiteral("мир"),
        QStringLiteral("Ckfdf,"),
        QStringLiteral("👨\u200D👩\u200D👧"),
        QStringLiteral("🇷🇺"),
        QStringLiteral("\u0438\u0306"),
        QStringLiteral("cafe\u0301"),
        QStringLiteral("[]{};':\""),
        QStringLiteral("2024"),
        QStringLiteral("\u0415\u0308\u0436"),
        QStringLiteral("ntrcn."),
        QStringLiteral("😀"),
    };
    QString text;
    std::uint32_t state = 12345;
    while (text.toUtf8().size() < utf8Bytes - 64) {
        for (int i = 0; i < 4096; ++i) {
            state = state * 1664525u + 1013904223u;
            text += pieces[(state >> 16) % pieces.size()];
            text += (state & 0x300) == 0 ? QLatin1Char('\n') : QLatin1Char(' ');
        }
    }
    return text;
}

const QString& benchText()
{
    static const QString text = mixedText(1 << 20);
    return text;
}

std::int64_t benchBytes()
{
    static const std::int64_t bytes = benchText().toUtf8().size();
    return bytes;
}

void BM_LayoutFix(benchmark::State& state)
{
    const QString& text = benchText();
    NoInputSources provider;
    KeyboardLayoutService service(provider);
    const MivoraSettings settings;
    for (auto _ : state) {
        KeyboardLayoutFixResult result = service.fix(text, settings);
        benchmark::DoNotOptimize(result.text.constData());
    }
    state.SetBytesProcessed(state.iterations() * benchBytes());
}

void BM_CodeUnitTableFloor(benchmark::State& state)
{
    const QString& text = benchText();
    const QString latin =
        QStringLiteral("`qwertyuiop[]asdfghjkl;'zxcvbnm,./~QWERTYUIOP{}ASDFGHJKL:\"ZXCVBNM<>?");
    const QString native =
        QStringLiteral("ёйцукенгшщзхъфывапролджэячсмитьбю.ЁЙЦУКЕНГШЩЗХЪФЫВАПРОЛДЖЭЯЧСМИТЬБЮ,");
    auto table = std::make_unique<std::array<char16_t, 0x10000>>();
    for (std::size_t c = 0; c < table->size(); ++c)
        (*table)[c] = char16_t(c);
    for (qsizetype i = 0; i < latin.size(); ++i)
        (*table)[latin[i].unicode()] = native[i].unicode();
    for (auto _ : state) {
        QString out(text.size(), Qt::Uninitialized);
        char16_t* dst = reinterpret_cast<char16_t*>(out.data());
        const char16_t* src = reinterpret_cast<const char16_t*>(text.constData());
        for (qsizetype i = 0; i < text.size(); ++i)
            dst[i] = (*table)[src[i]];
        benchmark::DoNotOptimize(out.constData());
    }
    state.SetBytesProcessed(state.iterations() * benchBytes());
}

} // namespace

BENCHMARK(BM_LayoutFix)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CodeUnitTableFloor)->Unit(benchmark::kMillisecond);
