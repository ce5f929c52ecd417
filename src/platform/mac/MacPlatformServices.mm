#include "platform/AccessibilityTree.h"
#include "platform/ApplicationCatalog.h"
#include "platform/ApplicationPresence.h"
#include "platform/ApplicationWorkspace.h"
#include "platform/BrowserTabRemote.h"
#include "platform/DesktopWindows.h"
#include "platform/DisplayConnectionMonitor.h"
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
#include "platform/mac/MacAccessibilityTree.h"
#include "platform/mac/MacApplicationCatalog.h"
#include "platform/mac/MacApplicationPresence.h"
#include "platform/mac/MacApplicationWorkspace.h"
#include "platform/mac/MacBrowserTabRemote.h"
#include "platform/mac/MacDesktopWindows.h"
#include "platform/mac/MacDisplayControl.h"
#include "platform/mac/MacFloatingWindowTraits.h"
#include "platform/mac/MacHotkeyRegistrar.h"
#include "platform/mac/MacInputEventMonitor.h"
#include "platform/mac/MacInputSources.h"
#include "platform/mac/MacLanguageRecognizer.h"
#include "platform/mac/MacModifierKeyState.h"
#include "platform/mac/MacPasteboard.h"
#include "platform/mac/MacPermissionProbe.h"
#include "platform/mac/MacPrimarySelection.h"
#include "platform/mac/MacProcessRunner.h"
#include "platform/mac/MacSurfaceSignals.h"
#include "platform/mac/MacSyntheticKeyboard.h"
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
    services.inputSources = std::make_unique<MacInputSources>();
    services.pasteboard = std::make_unique<MacPasteboard>();
    services.primarySelection = std::make_unique<MacPrimarySelection>();
    services.keyboard = std::make_unique<MacSyntheticKeyboard>();
    services.modifiers = std::make_unique<MacModifierKeyState>();
    services.hotkeyRegistrar = std::make_unique<MacHotkeyRegistrar>();
    services.globalInput =
        std::make_unique<MacInputEventMonitor>(MacInputEventMonitor::Scope::otherApplications);
    services.workspace = std::make_unique<MacApplicationWorkspace>();
    services.applications = std::make_unique<MacApplicationCatalog>();
    services.accessibility = std::make_unique<MacAccessibilityTree>();
    services.permissions = std::make_unique<MacPermissionProbe>();
    services.processRunner = std::make_unique<MacProcessRunner>();
    services.desktopWindows = std::make_unique<MacDesktopWindows>();
    services.displays = std::make_unique<MacDisplayControl>();
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
