#pragma once

#include "platform/PlatformServices.h"

#include <QObject>
#include <memory>
#include <qcoro/qcorotask.h>

class AccessibilityTextReader;
class AppUpdateManager;
class ClipboardHistoryService;
class DefaultsStore;
class EventLoopClock;
class FocusService;
class HotkeyService;
class KeyboardLayoutService;
class MivoraAppState;
class MivoraCore;
class NativeSettingsStore;
class PasteboardService;
class PasteboardTextExchange;
class PendingPanelTargets;
class PendingWindowTargets;
class PermissionController;
class PermissionService;
class QNetworkAccessManager;

// Owns the long-lived objects of the process, creates them in dependency order and starts the resident
// services in their fixed order. GUI thread.
class MivoraNativeApp : public QObject {
    Q_OBJECT
public:
    explicit MivoraNativeApp(QObject* parent = nullptr);
    ~MivoraNativeApp() override;

    MivoraAppState& appState() { return *m_appState; }

    // Runs one action on text without touching other applications; prints the result to stdout or the
    // failure to stderr. Returns the process exit status.
    QCoro::Task<int> runCommand(QString action, QString text);
    // Starts the resident services in their fixed order.
    void start();

private:
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
    std::unique_ptr<PasteboardService> m_pasteboardService;
    std::unique_ptr<PasteboardTextExchange> m_exchange;
    std::unique_ptr<MivoraAppState> m_appState;
    std::unique_ptr<PermissionService> m_permissionService;
    std::unique_ptr<PermissionController> m_permissions;
    std::unique_ptr<PendingPanelTargets> m_panels;
    std::unique_ptr<PendingWindowTargets> m_windows;
    std::unique_ptr<HotkeyService> m_hotkeys;
    std::unique_ptr<AppUpdateManager> m_updateManager;
};
