#pragma once

#include <memory>

class AccessibilityTree;
class ApplicationCatalog;
class ApplicationPresence;
class Clock;
class DisplayConnectionMonitor;
class DisplayControl;
class FloatingWindowTraits;
class ApplicationWorkspace;
class BrowserTabRemote;
class DesktopWindows;
class GlobalHotkeyRegistrar;
class InputEventMonitor;
class InputSourceProvider;
class LanguageRecognizer;
class ModifierKeyState;
class Pasteboard;
class PermissionProbe;
class PrimarySelection;
class ProcessRunner;
class SyntheticKeyboard;
class SystemBell;
class SystemSurfaceSignals;
class Updater;
class UrlOpener;

// The implementations of the small platform interfaces for the platform this build is for. Each member is
// non-null unless noted. Members are destroyed in reverse order, so later ones may use earlier ones.
struct PlatformServices {
private:
    // Platform-specific resources the services below share (a display connection and the one reader of
    // its events, say); declared first so it outlives them.
    struct Shared;
    std::unique_ptr<Shared> m_shared;

public:
    PlatformServices();
    PlatformServices(PlatformServices&&) noexcept;
    PlatformServices& operator=(PlatformServices&&) noexcept;
    ~PlatformServices();

    std::unique_ptr<InputSourceProvider> inputSources;
    // Null where the platform has no translucency settings.
    std::unique_ptr<SystemSurfaceSignals> surfaceSignals;
    std::unique_ptr<LanguageRecognizer> languageRecognizer;
    std::unique_ptr<UrlOpener> urlOpener;
    // Null where the platform has no updater framework; the update button then opens the download page.
    std::unique_ptr<Updater> updater;
    std::unique_ptr<Pasteboard> pasteboard;
    // Uses the pasteboard on platforms where both are one mechanism, so it is destroyed first.
    std::unique_ptr<PrimarySelection> primarySelection;
    std::unique_ptr<ApplicationWorkspace> workspace;
    // The installed applications, for choosing one in the settings.
    std::unique_ptr<ApplicationCatalog> applications;
    std::unique_ptr<AccessibilityTree> accessibility;
    std::unique_ptr<SyntheticKeyboard> keyboard;
    std::unique_ptr<ModifierKeyState> modifiers;
    std::unique_ptr<PermissionProbe> permissions;
    std::unique_ptr<ProcessRunner> processRunner;
    std::unique_ptr<GlobalHotkeyRegistrar> hotkeyRegistrar;
    // Mouse presses going to other applications; its monitors are null where the platform cannot watch them.
    std::unique_ptr<InputEventMonitor> globalInput;
    std::unique_ptr<FloatingWindowTraits> floatingWindows;
    // Other applications' top-level windows and the screens, for tiling.
    std::unique_ptr<DesktopWindows> desktopWindows;
    // Null until the platform has a way to drive the browser from outside.
    std::unique_ptr<BrowserTabRemote> browserTabs;
    // The displays, and switching the built-in one; it says itself whether the platform can switch.
    std::unique_ptr<DisplayControl> displays;
    std::unique_ptr<SystemBell> bell;
    // Null where the taskbar entry is the main window's own and comes and goes with it.
    std::unique_ptr<ApplicationPresence> presence;
    // Ends the program in one way whichever of its display connections breaks first; null where there is no
    // display connection to lose.
    std::unique_ptr<DisplayConnectionMonitor> connectionMonitor;

    // Connects to the display server when there is one; without one, each service degrades to "nothing
    // available" rather than failing. Waits for other programs' answers run on clock, which must outlive
    // the services. GUI thread.
    static PlatformServices create(Clock& clock);
};
