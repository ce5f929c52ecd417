#pragma once

#include "core/UiLanguage.h"
#include "platform/PlatformServices.h"
#include "shell/MainWindowHost.h"
#include "shell/settings/SettingsPageServices.h"

#include <QObject>
#include <functional>
#include <memory>
#include <qcoro/qcorotask.h>

class AccessibilityTextReader;
class AppLayoutSwitchService;
class AppUpdateManager;
class AssistantPanelController;
class BuiltInDisplayService;
class ChromeAppWindowService;
class ClipboardHistoryService;
class ClipboardNotesService;
class ClipboardPanelController;
class ClipboardPanelSurface;
class FloatingWindowTraits;
class InputEventMonitor;
class DefaultsStore;
class EventLoopClock;
class FloatingButtonController;
class FloatingButtonSurface;
class FloatingWindowTraits;
class FocusService;
class HotkeyService;
class InputEventMonitor;
class KeyPanelSurface;
class KeyboardLayoutService;
class MenuBarController;
class MivoraAppDelegate;
class MivoraAppState;
class MivoraCore;
class NativePanelExchange;
class NativeSettingsStore;
class PanelBackend;
class PasteboardService;
class PasteboardTextExchange;
class ResidentPanels;
class PermissionController;
class PermissionService;
class QNetworkAccessManager;
class QuickPanelController;
class QuickPanelSurface;
class QuietSelectionReader;
class SelectionTriggerService;
class StatusHUDController;
class StatusHUDSurface;
class TranslationPreviewPanelController;
class TraySurface;
class UpdateAlertPresenter;
class WindowDragSwapMonitor;
class WindowTilingService;
class WindowTilingTargets;

// Owns the long-lived objects of the process, creates them in dependency order and starts the resident
// services in their fixed order. GUI thread.
class MivoraNativeApp : public QObject {
    Q_OBJECT
public:
    // The program's face, made by the executable's views; an empty member leaves that part out (the command
    // line has no face at all).
    struct Views {
        std::function<std::unique_ptr<StatusHUDSurface>(FloatingWindowTraits*)> makeStatusHUD;
        std::function<std::unique_ptr<TraySurface>()> makeTray;
        std::function<bool()> trayHostAvailable;
        std::function<std::unique_ptr<MainWindowHost>(MivoraAppState&, const SettingsPageServices&,
                                                      MainWindowHooks)>
            makeMainWindow;
        std::function<std::unique_ptr<UpdateAlertPresenter>(AppUpdateManager&, std::function<UiLanguage()>)>
            makeUpdateAlerts;
        // windowTraits may be null; globalInput outlives the panel.
        std::function<std::unique_ptr<KeyPanelSurface>(AssistantPanelController&, FloatingWindowTraits*)>
            makeAssistantPanel;
        std::function<std::unique_ptr<KeyPanelSurface>(TranslationPreviewPanelController&,
                                                       FloatingWindowTraits*, InputEventMonitor& globalInput)>
            makeTranslationPreview;
        // The watcher of input going to this program's own windows, for the floating panels' dismissal.
        std::function<std::unique_ptr<InputEventMonitor>()> makeLocalInputMonitor;
        std::function<std::unique_ptr<QuickPanelSurface>(QuickPanelController&, FloatingWindowTraits*)>
            makeQuickPanel;
        std::function<std::unique_ptr<FloatingButtonSurface>(FloatingButtonController&,
                                                             FloatingWindowTraits*)>
            makeFloatingButton;
        std::function<std::unique_ptr<ClipboardPanelSurface>(ClipboardPanelController&,
                                                             FloatingWindowTraits*)>
            makeClipboardPanel;
    };

    explicit MivoraNativeApp(const Views& views = {}, QObject* parent = nullptr);
    ~MivoraNativeApp() override;

    MivoraAppState& appState() { return *m_appState; }

    // Runs one action on text without touching other applications; prints the result to stdout or the
    // failure to stderr. Returns the process exit status.
    QCoro::Task<int> runCommand(QString action, QString text);
    // Starts the resident services in their fixed order.
    void start();
    // Brings the main window forward, as starting the program a second time does.
    void showMainWindow();
    // Quits the program from its own menu: windows close for real from here on.
    void quit();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makeFace(const Views& views);
    void makeAIPanels(const Views& views);
    void makeQuickPanels(const Views& views);

    std::unique_ptr<EventLoopClock> m_clock;
    std::unique_ptr<DefaultsStore> m_defaults;
    std::unique_ptr<NativeSettingsStore> m_settingsStore;
    PlatformServices m_platform;
    std::unique_ptr<QNetworkAccessManager> m_network;
    std::unique_ptr<KeyboardLayoutService> m_keyboardLayout;
    std::unique_ptr<MivoraCore> m_core;
    std::unique_ptr<ClipboardHistoryService> m_clipboardHistory;
    std::unique_ptr<FocusService> m_focus;
    std::unique_ptr<AccessibilityTextReader> m_reader;
    std::unique_ptr<QuietSelectionReader> m_quietReader;
    std::unique_ptr<PasteboardService> m_pasteboardService;
    std::unique_ptr<PasteboardTextExchange> m_exchange;
    std::unique_ptr<MivoraAppState> m_appState;
    std::unique_ptr<BuiltInDisplayService> m_builtInDisplay;
    std::unique_ptr<AppLayoutSwitchService> m_appLayoutSwitch;
    std::unique_ptr<PermissionService> m_permissionService;
    std::unique_ptr<PermissionController> m_permissions;
    std::unique_ptr<NativePanelExchange> m_panelExchange;
    std::unique_ptr<PanelBackend> m_assistantBackend;
    std::unique_ptr<PanelBackend> m_previewBackend;
    std::unique_ptr<AssistantPanelController> m_assistant;
    std::unique_ptr<TranslationPreviewPanelController> m_translationPreview;
    std::unique_ptr<ResidentPanels> m_panels;
    std::unique_ptr<WindowTilingService> m_tiling;
    std::unique_ptr<ChromeAppWindowService> m_browserPopOut;
    std::unique_ptr<WindowTilingTargets> m_windows;
    std::unique_ptr<WindowDragSwapMonitor> m_dragSwap;
    std::unique_ptr<HotkeyService> m_hotkeys;
    std::unique_ptr<AppUpdateManager> m_updateManager;
    std::unique_ptr<UpdateAlertPresenter> m_updateAlerts;
    std::unique_ptr<MainWindowHost> m_mainWindow;
    std::unique_ptr<MivoraAppDelegate> m_delegate;
    std::unique_ptr<StatusHUDController> m_statusHUD;
    std::unique_ptr<MenuBarController> m_menuBar;
    std::unique_ptr<InputEventMonitor> m_localInput;
    std::unique_ptr<QuickPanelController> m_quickPanel;
    std::unique_ptr<FloatingButtonController> m_floatingButton;
    std::unique_ptr<SelectionTriggerService> m_selectionTrigger;
    std::unique_ptr<ClipboardNotesService> m_clipboardNotes;
    std::unique_ptr<ClipboardPanelController> m_clipboardPanel;
};
