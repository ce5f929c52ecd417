#include "DuplicateStyleIds.h"
#include "FuzzApplication.h"
#include "MemoryDefaultsStore.h"
#include "core/AIReplyStyle.h"
#include "core/AppLayoutRule.h"
#include "core/JsonCoding.h"
#include "core/NativeSettingsStore.h"
#include "core/PromptStyle.h"

#include <array>
#include <cstdint>

// The rewrite styles, reply styles, per-application layout rules and window-tiling chords are stored as JSON
// that the user may have edited by hand. Whatever the JSON, decoding must not fail badly, and a list that
// decodes must encode and decode to itself.
extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    fuzzApplication();
    return 0;
}

namespace {

template <typename T> void roundTrip(const QByteArray& json)
{
    const std::optional<QList<T>> decoded = JsonCoding::decodeArray<T>(json, &T::fromJson);
    if (decoded) {
        fuzzCheck(JsonCoding::decodeArray<T>(JsonCoding::encodeArray(*decoded, &T::toJson), &T::fromJson) ==
                  decoded);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray json(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    roundTrip<PromptStyle>(json);
    roundTrip<AIReplyStyle>(json);
    if (const auto rules = AppLayoutRule::decodeList(json)) {
        fuzzCheck(AppLayoutRule::decodeList(AppLayoutRule::encodeList(*rules)) == rules);
    }

    // The same text under each JSON key, through the settings loading with its merges and migrations.
    MemoryDefaultsStore stored;
    const std::array keys{"mivora.promptStyles", "mivora.aiReplyStyles", "mivora.appLayoutSwitching.rules",
                          "mivora.windowTiling.hotkeys"};
    for (const char* key : keys) {
        stored.setValue(QString::fromLatin1(key), json);
    }
    if (storesDuplicateStyleIds(stored)) {
        return 0;
    }
    const MivoraSettings settings = NativeSettingsStore(stored).load();
    MemoryDefaultsStore resaved;
    NativeSettingsStore(resaved).save(settings);
    fuzzCheck(NativeSettingsStore(resaved).load() == settings);
    return 0;
}
