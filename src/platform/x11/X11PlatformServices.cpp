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
#include "platform/x11/AtspiAccessibilityTree.h"
#include "platform/x11/DesktopUrlOpener.h"
#include "platform/x11/QtProcessRunner.h"
#include "platform/x11/TextcatLanguageRecognizer.h"
#include "platform/x11/UnavailableAccessibilityTree.h"
#include "platform/x11/X11ApplicationWorkspace.h"
#include "platform/x11/X11CompositorSurfaceSignals.h"
#include "platform/x11/X11ConnectionLossMonitor.h"
#include "platform/x11/X11DesktopWindows.h"
#include "platform/x11/X11DisplayConnection.h"
#include "platform/x11/X11EventPump.h"
#include "platform/x11/X11FloatingWindowTraits.h"
#include "platform/x11/X11GlobalInputMonitor.h"
#include "platform/x11/X11HotkeyRegistrar.h"
#include "platform/x11/X11InputSources.h"
#include "platform/x11/X11ModifierKeyState.h"
#include "platform/x11/X11Pasteboard.h"
#include "platform/x11/X11PermissionProbe.h"
#include "platform/x11/X11PrimarySelection.h"
#include "platform/x11/X11RandrDisplays.h"
#include "platform/x11/X11SyntheticKeyboard.h"
#include "platform/x11/X11SystemBell.h"
#include "platform/x11/XdgApplicationCatalog.h"

struct PlatformServices::Shared {
    explicit Shared(Clock& clock) : pump(display.get(), clock) {}

    // One connection for every service; those that follow events or await other clients' answers do so
    // through the one pump, so no service can take another's events.
    X11DisplayConnection display;
    X11EventPump pump;
};

PlatformServices::PlatformServices() = default;
PlatformServices::PlatformServices(PlatformServices&&) noexcept = default;
PlatformServices& PlatformServices::operator=(PlatformServices&&) noexcept = default;
PlatformServices::~PlatformServices() = default;

PlatformServices PlatformServices::create(Clock& clock)
{
    PlatformServices services;
    services.m_shared = std::make_unique<Shared>(clock);
    Display* display = services.m_shared->display.get();
    X11EventPump& pump = services.m_shared->pump;

    auto inputSources = std::make_unique<X11InputSources>();
    inputSources->followChanges(pump);
    services.inputSources = std::move(inputSources);
    services.languageRecognizer = std::make_unique<TextcatLanguageRecognizer>();
    services.urlOpener = std::make_unique<DesktopUrlOpener>();
    auto pasteboard = std::make_unique<X11Pasteboard>(pump);
    services.primarySelection = std::make_unique<X11PrimarySelection>(display, *pasteboard);
    services.pasteboard = std::move(pasteboard);
    auto workspace = std::make_unique<X11ApplicationWorkspace>(pump);
    ApplicationWorkspace* workspaceView = workspace.get();
    services.workspace = std::move(workspace);
    services.applications = std::make_unique<XdgApplicationCatalog>(XdgApplicationCatalog::forCurrentUser());
    // Without an accessibility bus every accessible read is empty and the clipboard route serves alone.
    auto accessibility = std::make_unique<AtspiAccessibilityTree>();
    if (accessibility->isAvailable()) {
        services.accessibility = std::move(accessibility);
    } else {
        services.accessibility = std::make_unique<UnavailableAccessibilityTree>();
    }
    services.keyboard = std::make_unique<X11SyntheticKeyboard>(display, [workspaceView] {
        const auto front = workspaceView->frontmostApplication();
        return front ? front->bundleIdentifier : QString();
    });
    services.modifiers = std::make_unique<X11ModifierKeyState>(display);
    services.permissions = std::make_unique<X11PermissionProbe>(display);
    services.processRunner = std::make_unique<QtProcessRunner>();
    services.hotkeyRegistrar = std::make_unique<X11HotkeyRegistrar>(pump);
    services.surfaceSignals = std::make_unique<X11CompositorSurfaceSignals>(display);
    services.globalInput = std::make_unique<X11GlobalInputMonitor>(pump);
    services.floatingWindows = std::make_unique<X11FloatingWindowTraits>();
    services.desktopWindows = std::make_unique<X11DesktopWindows>(pump);
    services.displays = std::make_unique<X11RandrDisplays>(pump);
    services.bell = std::make_unique<X11SystemBell>(display);
    services.connectionMonitor = std::make_unique<X11ConnectionLossMonitor>();
    return services;
}
