#include "DuplicateStyleIds.h"
#include "FakePasteboard.h"
#include "FuzzApplication.h"
#include "FuzzedDefaultsStore.h"
#include "MemoryDefaultsStore.h"
#include "TestClock.h"
#include "clipboard/ClipboardHistoryService.h"
#include "core/NativeSettingsStore.h"
#include "core/SettingsService.h"
#include "net/DeploymentConfiguration.h"
#include "panels/SavedPanelSize.h"
#include "text/BackendCredentials.h"

#include <QCoreApplication>
#include <array>
#include <cstdint>

// Every "mivora.*" value is read back from a file the user, an older version or a broken disk may have
// written: whatever a key holds, loading must give a usable record, and what was loaded must save and load
// again unchanged.
extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    fuzzApplication();
    return 0;
}

namespace {

void loadSettings(FuzzedDefaultsStore& stored)
{
    NativeSettingsStore native(stored);
    const MivoraSettings settings = native.load();
    MemoryDefaultsStore resaved;
    NativeSettingsStore second(resaved);
    second.save(settings);
    fuzzCheck(second.load() == settings);
    const SettingsService service(native);
    (void)service.quickActions();
}

void loadClipboardHistory(FuzzedDefaultsStore& stored)
{
    FakePasteboard pasteboard;
    TestClock clock;
    ClipboardHistoryService history(pasteboard, clock, stored);
    const QList<ClipboardHistoryItem> loaded = history.items();
    history.save();
    const QVariant saved = stored.value(ClipboardHistoryService::storageKey());
    fuzzCheck(ClipboardHistoryItem::decodeList(saved.toByteArray()) == loaded);
    history.applySettings(NativeSettingsStore(stored).load());
    clock.runUntilIdle();
}

void loadPanelSizes(FuzzedDefaultsStore& stored)
{
    const SavedPanelSize::Limits limits{{320, 200}, {1400, 1000}, {480, 360}};
    const std::array prefixes{"mivora.clipboardPanel", "mivora.assistantPanel", "mivora.quickPanel",
                              "mivora.translationPreviewPanel"};
    for (const char* prefix : prefixes) {
        const QSize size = SavedPanelSize(stored, QString::fromLatin1(prefix), limits).load();
        fuzzCheck(size == limits.fallback ||
                  (size.expandedTo(limits.minimum) == size && size.boundedTo(limits.maximum) == size));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzedDefaultsStore stored(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    if (storesDuplicateStyleIds(stored)) {
        return 0;
    }
    loadSettings(stored);
    loadClipboardHistory(stored);
    loadPanelSizes(stored);
    (void)DeploymentConfiguration::forUser(stored);
    fuzzCheck(!BackendCredentials(stored, QString()).deviceId().isEmpty());
    QCoreApplication::processEvents();
    return 0;
}
