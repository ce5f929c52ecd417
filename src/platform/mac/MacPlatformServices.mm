#include "platform/AccessibilityTree.h"
#include "platform/ApplicationCatalog.h"
#include "platform/ApplicationPresence.h"
#include "platform/ApplicationWorkspace.h"
#include "platform/BrowserTabRemote.h"
#include "platform/DesktopWindows.h"
#include "platform/DisplayControl.h"
#include "platform/FloatingWindowTraits.h"
#include "platform/GlobalHotkeyRegistrar.h"
#include "platform/InputEventMonitor.h"
#include "platform/InputSourceProvider.h"
#include "platform/LanguageRecognizer.h"
#include "platform/ModifierKeyState.h"
#include "platform/Pasteboard.h"
#include "platform/PermissionProbe.h"
#include "platform/PlatformServices.h"
#include "platform/PrimarySelection.h"
#include "platform/ProcessRunner.h"
#include "platform/SyntheticKeyboard.h"
#include "platform/SystemBell.h"
#include "platform/SystemSurfaceSignals.h"
#include "platform/Updater.h"
#include "platform/UrlOpener.h"
#include "platform/mac/MacApplicationPresence.h"
#include "platform/mac/MacBrowserTabRemote.h"
#include "platform/mac/MacFloatingWindowTraits.h"
#include "platform/mac/MacLanguageRecognizer.h"
#include "platform/mac/MacSurfaceSignals.h"
#include "platform/mac/MacSystemBell.h"
#include "platform/mac/MacUrlOpener.h"
#if MIVORA_MAC_UPDATER
#include "platform/mac/MacUpdater.h"
#endif

// Nothing shared between the macOS services: each reaches its framework directly.
struct PlatformServices::Shared {};

PlatformServices::PlatformServices() = default;
PlatformServices::PlatformServices(PlatformServices&&) noexcept = default;
PlatformServices& PlatformServices::operator=(PlatformServices&&) noexcept = default;
PlatformServices::~PlatformServices() = default;

PlatformServices PlatformServices::create(Clock& /*clock*/)
{
    PlatformServices services;
    services.m_shared = std::make_unique<Shared>();
    services.surfaceSignals = std::make_unique<MacSurfaceSignals>();
    services.languageRecognizer = std::make_unique<MacLanguageRecognizer>();
    services.urlOpener = std::make_unique<MacUrlOpener>();
#if MIVORA_MAC_UPDATER
    services.updater = std::make_unique<MacUpdater>();
#endif
    services.floatingWindows = std::make_unique<MacFloatingWindowTraits>();
    services.browserTabs = std::make_unique<MacBrowserTabRemote>();
    services.bell = std::make_unique<MacSystemBell>();
    services.presence = std::make_unique<MacApplicationPresence>();
    return services;
}
