#pragma once

#include "platform/DisplayControl.h"

#include <functional>

class AppUpdateManager;
class ApplicationCatalog;
class ApplicationWorkspace;
class ClipboardHistoryService;
class GlobalHotkeySuspension;
class InputSourceProvider;
class KeyboardLayoutService;
class PermissionController;

// What the pages of the settings window need beyond the application state. Every member may be null (or
// empty): a page then leaves out what depends on it, so tests and previews build pages from a bare state.
struct SettingsPageServices {
    // Held back while a hotkey recorder records, so that pressing a configured chord records it.
    GlobalHotkeySuspension* hotkeys = nullptr;
    ClipboardHistoryService* clipboardHistory = nullptr;
    PermissionController* permissions = nullptr;
    AppUpdateManager* updates = nullptr;
    KeyboardLayoutService* keyboardLayout = nullptr;
    ApplicationWorkspace* workspace = nullptr;
    // The installed applications, offered by "Add application" on the Layout page.
    ApplicationCatalog* applications = nullptr;
    InputSourceProvider* inputSources = nullptr;
    // True when a built-in display can be switched off, or one is off now; empty means never.
    std::function<bool()> offersBuiltInDisplay;
    // Names the built-in display as the tray does.
    DisplayControl::PanelName panelName = DisplayControl::PanelName::macBookDisplay;
    // The half-screen hotkeys take the browser's active tab out into a window of its own.
    bool popsOutBrowserTabs = false;
};
