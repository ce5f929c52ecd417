#include "shell/MivoraNativeApp.h"

#include "clipboard/ClipboardHistoryService.h"
#include "clipboard/ClipboardNotesService.h"
#include "clipboard/ClipboardPanelController.h"
#include "core/EventLoopClock.h"
#include "core/MivoraAppState.h"
#include "core/NativeSettingsStore.h"
#include "core/QSettingsDefaultsStore.h"
#include "exchange/AccessibilityTextReader.h"
#include "exchange/FocusService.h"
#include "exchange/PasteboardService.h"
#include "exchange/PasteboardTextExchange.h"
#include "exchange/PermissionController.h"
#include "exchange/PermissionService.h"
#include "exchange/QuietSelectionReader.h"
#include "hotkeys/HotkeyService.h"
#include "net/DeploymentConfiguration.h"
#include "panels/AssistantPanelController.h"
#include "panels/FloatingButtonController.h"
#include "panels/FloatingButtonSurface.h"
#include "panels/KeyPanelSurface.h"
#include "panels/NativePanelExchange.h"
#include "panels/PanelBackendClient.h"
#include "panels/QuickPanelController.h"
#include "panels/QuickPanelSurface.h"
#include "panels/SelectionTriggerService.h"
#include "panels/StatusHUDController.h"
#include "panels/StatusHUDSurface.h"
#include "panels/TranslationPreviewPanelController.h"
#include "platform/AccessibilityTree.h"
#include "platform/ApplicationPresence.h"
#include "platform/ApplicationWorkspace.h"
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
#include "platform/PrimarySelection.h"
#include "platform/ProcessRunner.h"
#include "platform/SyntheticKeyboard.h"
#include "platform/SystemBell.h"
#include "platform/SystemSurfaceSignals.h"
#include "platform/Updater.h"
#include "platform/UrlOpener.h"
#include "shell/MenuBarController.h"
#include "shell/MivoraAppDelegate.h"
#include "shell/ResidentPanels.h"
#include "shell/TraySurface.h"
#include "shell/WindowTilingTargets.h"
#include "system/AppLayoutSwitchService.h"
#include "system/BuiltInDisplayService.h"
#include "system/ChromeAppWindowService.h"
#include "system/WindowDragSwapMonitor.h"
#include "system/WindowTilingService.h"
#include "text/KeyboardLayoutService.h"
#include "text/MivoraCore.h"
#include "text/NativeActionService.h"
#include "updates/AppUpdateClient.h"
#include "updates/AppUpdateManager.h"
#include "updates/UpdateAlertPresenter.h"

#include <QCoreApplication>
#include <QDir>
#include <QLoggingCategory>
#include <QNetworkAccessManager>
#include <QStandardPaths>
#include <QTextStream>

namespace {
Q_LOGGING_CATEGORY(statusLog, "mivora.status", QtWarningMsg)
const QString requestPermissionsOnLaunchKey = QStringLiteral("mivora.requestPermissionsOnLaunch");
} // namespace

MivoraNativeApp::MivoraNativeApp(const Views& views, QObject* parent)
    : QObject(parent), m_clock(std::make_unique<EventLoopClock>()),
      m_defaults(
          std::make_unique<QSettingsDefaultsStore>(QStringList{ClipboardHistoryService::storageKey()})),
      m_settingsStore(std::make_unique<NativeSettingsStore>(*m_defaults)),
      m_platform(PlatformServices::create(*m_clock)), m_network(std::make_unique<QNetworkAccessManager>())
{
    m_keyboardLayout = std::make_unique<KeyboardLayoutService>(*m_platform.inputSources);
    const DeploymentConfiguration deployment = DeploymentConfiguration::forUser(*m_defaults);
    m_core =
        std::make_unique<MivoraCore>(*m_network, *m_defaults, *m_platform.languageRecognizer, deployment);
    m_clipboardHistory =
        std::make_unique<ClipboardHistoryService>(*m_platform.pasteboard, *m_clock, *m_defaults);
    m_focus = std::make_unique<FocusService>(*m_platform.workspace, *m_platform.accessibility);
    m_reader =
        std::make_unique<AccessibilityTextReader>(*m_focus, *m_platform.workspace, *m_platform.accessibility);
    m_pasteboardService = std::make_unique<PasteboardService>(PasteboardService::Services{
        *m_clock, *m_platform.pasteboard, *m_clipboardHistory, *m_focus, *m_reader, *m_platform.workspace,
        *m_platform.keyboard, *m_platform.modifiers, *m_platform.permissions});
    m_quietReader = std::make_unique<QuietSelectionReader>(*m_reader, *m_focus, *m_platform.primarySelection);
    m_exchange = std::make_unique<PasteboardTextExchange>(*m_pasteboardService, *m_quietReader);
    m_appState = std::make_unique<MivoraAppState>(
        MivoraAppState::Services{*m_clock, *m_settingsStore, *m_keyboardLayout, m_core->actions(),
                                 *m_exchange, m_platform.surfaceSignals.get()});
    m_appState->setClipboardHistory(m_clipboardHistory.get());
    m_builtInDisplay = std::make_unique<BuiltInDisplayService>(*m_platform.displays, *m_defaults, *m_clock,
                                                               *m_platform.bell);
    m_appLayoutSwitch = std::make_unique<AppLayoutSwitchService>(AppLayoutSwitchService::Services{
        *m_platform.workspace, *m_platform.inputSources, *m_keyboardLayout, *m_clock});
    m_permissionService = std::make_unique<PermissionService>(*m_platform.processRunner);
    m_permissions = std::make_unique<PermissionController>(*m_appState, *m_clock, *m_platform.permissions,
                                                           *m_permissionService, *m_platform.urlOpener);
    m_panels = std::make_unique<ResidentPanels>();
    m_tiling = std::make_unique<WindowTilingService>(*m_platform.desktopWindows,
                                                     m_platform.workspace->currentProcessIdentifier());
    m_browserPopOut = std::make_unique<ChromeAppWindowService>(
        *m_platform.workspace, *m_platform.accessibility, m_platform.browserTabs.get(), *m_clock,
        [this](WindowTileSlot slot) { m_windows->tileFocusedWindow(slot); });
    m_windows = std::make_unique<WindowTilingTargets>(*m_tiling, *m_browserPopOut, *m_builtInDisplay);
    m_dragSwap = std::make_unique<WindowDragSwapMonitor>(*m_platform.globalInput, *m_defaults, *m_tiling);
    m_hotkeys = std::make_unique<HotkeyService>(
        HotkeyService::Services{*m_platform.hotkeyRegistrar, *m_platform.workspace, *m_focus, *m_quietReader,
                                *m_exchange, *m_panels, *m_windows});
    m_updateManager = std::make_unique<AppUpdateManager>(
        std::make_unique<AppUpdateClient>(*m_network, deployment, *m_clock), *m_defaults, *m_clock,
        *m_platform.urlOpener, m_platform.updater.get());
    m_panelExchange = std::make_unique<NativePanelExchange>(NativePanelExchange::Services{
        *m_platform.workspace, *m_focus, *m_quietReader, *m_pasteboardService, *m_platform.pasteboard});
    // Each panel has a client of its own on the shared network session.
    const auto panelBackend = [&] {
        return std::make_unique<PanelBackendClient>(
            *m_network, BackendCredentials(*m_defaults, deployment.backendToken), deployment.backendBaseUrl,
            *m_platform.languageRecognizer);
    };
    m_assistantBackend = panelBackend();
    m_previewBackend = panelBackend();
    makeAIPanels(views);
    makeFace(views);
}

void MivoraNativeApp::makeAIPanels(const Views& views)
{
    FloatingWindowTraits* traits = m_platform.floatingWindows.get();
    if (views.makeAssistantPanel) {
        m_assistant = std::make_unique<AssistantPanelController>(
            AssistantPanelController::Services{*m_appState, *m_clock, *m_assistantBackend, *m_panelExchange,
                                               *m_defaults},
            [this, make = views.makeAssistantPanel, traits] { return make(*m_assistant, traits); });
        m_panels->setAssistant(m_assistant.get());
    }
    if (views.makeTranslationPreview && m_platform.globalInput) {
        m_translationPreview = std::make_unique<TranslationPreviewPanelController>(
            TranslationPreviewPanelController::Services{*m_appState, *m_previewBackend, *m_panelExchange,
                                                        *m_defaults},
            [this, make = views.makeTranslationPreview, traits] {
                return make(*m_translationPreview, traits, *m_platform.globalInput);
            });
        m_panels->setTranslationPreview(m_translationPreview.get());
    }
}

void MivoraNativeApp::makeFace(const Views& views)
{
    if (views.makeStatusHUD) {
        m_statusHUD = std::make_unique<StatusHUDController>(
            [this, make = views.makeStatusHUD] { return make(m_platform.floatingWindows.get()); });
    }
    if (views.makeLocalInputMonitor) {
        m_localInput = views.makeLocalInputMonitor();
    }
    if (views.makeClipboardPanel) {
        // The per-user data directory; the temporary one when the system names none.
        QString dataRoot = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
        if (dataRoot.isEmpty()) {
            dataRoot = QDir::tempPath();
        }
        m_clipboardNotes = std::make_unique<ClipboardNotesService>(
            *m_clock, *m_defaults, QDir(dataRoot).filePath(ClipboardNotesService::folderName()));
        m_clipboardPanel = std::make_unique<ClipboardPanelController>(
            ClipboardPanelController::Services{*m_clock, *m_defaults, *m_clipboardHistory, *m_clipboardNotes,
                                               *m_platform.pasteboard, *m_exchange, *m_focus,
                                               *m_platform.workspace, m_localInput.get(),
                                               m_platform.globalInput.get()},
            [this, make = views.makeClipboardPanel](ClipboardPanelController& controller) {
                return make(controller, m_platform.floatingWindows.get());
            });
        m_panels->setClipboardPanel(m_clipboardPanel.get());
    }
    if (views.makeMainWindow) {
        SettingsPageServices pages;
        pages.hotkeys = m_hotkeys.get();
        pages.clipboardHistory = m_clipboardHistory.get();
        pages.permissions = m_permissions.get();
        pages.updates = m_updateManager.get();
        pages.keyboardLayout = m_keyboardLayout.get();
        pages.workspace = m_platform.workspace.get();
        pages.inputSources = m_platform.inputSources.get();
        pages.applications = m_platform.applications.get();
        pages.offersBuiltInDisplay = [this] { return m_builtInDisplay->offersBuiltInDisplay(); };
        pages.panelName = m_builtInDisplay->panelName();
        pages.popsOutBrowserTabs = m_browserPopOut->canPopOut();
        m_mainWindow = views.makeMainWindow(
            *m_appState, pages,
            MainWindowHooks{[this] { return m_delegate->windowShouldClose(); },
                            [this] {
                                if (m_delegate->applicationShouldTerminateAfterLastWindowClosed()) {
                                    quit();
                                }
                            },
                            [this] { m_panels->toggleQuickPanel(); },
                            [this](quintptr window) {
                                if (m_platform.presence) {
                                    m_platform.presence->applyMainWindowTraits(window);
                                }
                            }});
        m_delegate = std::make_unique<MivoraAppDelegate>(MivoraAppDelegate::Services{
            *m_clock, *m_defaults, *m_mainWindow, views.trayHostAvailable, m_platform.presence.get()});
    }
    if (views.makeUpdateAlerts) {
        m_updateAlerts =
            views.makeUpdateAlerts(*m_updateManager, [this] { return m_appState->settings().uiLanguage; });
        m_updateManager->setAlertPresenter(m_updateAlerts.get());
    }
    if (views.makeTray) {
        MenuBarController::Actions actions;
        actions.showMainWindow = [this] { showMainWindow(); };
        actions.toggleQuickPanel = [this] { m_panels->toggleQuickPanel(); };
        actions.toggleClipboardPanel = [this] { m_panels->toggleClipboardPanel(); };
        actions.showTranslationPreview = [this] { m_panels->showTranslationPreview(); };
        actions.refreshPermissions = [this] { m_permissions->refreshPermissions(); };
        actions.quit = [this] { quit(); };
        actions.toggleBuiltInDisplay = [this] { m_builtInDisplay->toggle(); };
        actions.builtInDisplay = [this]() -> std::optional<BuiltInDisplayMenuState> {
            BuiltInDisplayService& display = *m_builtInDisplay;
            if (!display.canSwitchDisplays()) {
                return std::nullopt;
            }
            return BuiltInDisplayMenuState{display.disabledDisplayID().has_value(),
                                           display.activeBuiltInDisplay().has_value(),
                                           display.canDisableNow(), display.panelName()};
        };
        m_menuBar = std::make_unique<MenuBarController>(views.makeTray, std::move(actions));
        connect(m_builtInDisplay.get(), &BuiltInDisplayService::changed, m_menuBar.get(),
                &MenuBarController::displayStateChanged);
    }
    makeQuickPanels(views);
}

void MivoraNativeApp::makeQuickPanels(const Views& views)
{
    if (!m_localInput || !views.makeQuickPanel || !views.makeFloatingButton) {
        return;
    }
    FloatingWindowTraits* traits = m_platform.floatingWindows.get();
    m_quickPanel = std::make_unique<QuickPanelController>(
        QuickPanelController::Services{*m_platform.workspace, *m_focus, *m_quietReader, *m_panels,
                                       *m_localInput, *m_platform.globalInput, *m_defaults},
        [make = views.makeQuickPanel, traits](QuickPanelController& controller) {
            return make(controller, traits);
        });
    m_floatingButton = std::make_unique<FloatingButtonController>(
        [make = views.makeFloatingButton, traits](FloatingButtonController& controller) {
            return make(controller, traits);
        });
    m_selectionTrigger = std::make_unique<SelectionTriggerService>(
        SelectionTriggerService::Services{*m_clock, *m_platform.workspace, *m_focus, *m_quietReader,
                                          *m_exchange, *m_localInput, *m_platform.globalInput});
    m_panels->setQuickPanel([this] { m_quickPanel->toggle(*m_appState); });
}

void MivoraNativeApp::showMainWindow()
{
    if (m_delegate) {
        m_delegate->showMainWindow();
    }
}

void MivoraNativeApp::quit()
{
    // A display this program switched off comes back before anything else goes.
    m_builtInDisplay->enableBuiltIn();
    if (m_delegate) {
        m_delegate->applicationShouldTerminate();
        m_delegate->stop();
    }
    QCoreApplication::quit();
}

bool MivoraNativeApp::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == QCoreApplication::instance() && event->type() == QEvent::Quit && m_delegate) {
        m_delegate->applicationShouldTerminate();
    }
    return false;
}

MivoraNativeApp::~MivoraNativeApp()
{
    // Every other way out (the session's end, say) passes here; after quit this does nothing.
    m_builtInDisplay->enableBuiltIn();
    // Release the global chords before the registrar's connection goes.
    m_hotkeys->stop();
    m_updateManager->setAlertPresenter(nullptr);
}

QCoro::Task<int> MivoraNativeApp::runCommand(QString action, QString text)
{
    m_appState->setSampleText(text);
    co_await m_appState->runToEnd(QuickAction(QuickAction::normalize(action)), false, true);
    const ActionStatus& status = m_appState->status();
    if (status.kind == ActionStatus::Kind::done) {
        QTextStream(stdout) << m_appState->latestOutput() << Qt::endl;
        co_return 0;
    }
    QTextStream(stderr) << (status.text.isEmpty() ? QStringLiteral("The action did not finish.")
                                                  : status.text)
                        << Qt::endl;
    co_return 1;
}

void MivoraNativeApp::start()
{
    // A lost display ends the process without the destructors: what the stores hold goes to disk first.
    // Notes and history are written at each change; the defaults store writes at its own pace.
    if (m_platform.connectionMonitor) {
        m_platform.connectionMonitor->setLossHandler([this] { m_defaults->sync(); });
    }
    // First of all, a panel the previous run left switched off comes back.
    m_builtInDisplay->restoreAfterPreviousLaunch();
    // The user reads failures on the overlay. For whoever diagnoses a session, they are also logged, off
    // unless asked for (QT_LOGGING_RULES="mivora.status.info=true").
    connect(m_appState.get(), &MivoraAppState::statusChanged, this, [this] {
        const ActionStatus& status = m_appState->status();
        if (status.kind == ActionStatus::Kind::failed) {
            qCInfo(statusLog).noquote() << status.text;
        }
    });

    m_dragSwap->start();
    m_appState->startSystemSurfaceObserver();
    if (m_statusHUD) {
        m_statusHUD->attach(*m_appState);
    }
    m_hotkeys->start(*m_appState);
    if (m_selectionTrigger) {
        m_selectionTrigger->start(*m_appState, *m_quickPanel, *m_floatingButton);
    }
    // Registration is over when start returns (a failure was told above); whoever drives the app from
    // outside may press from now on.
    QTextStream(stdout) << "MivoraAI hotkeys ready" << Qt::endl;
    if (m_menuBar) {
        m_menuBar->attach(*m_appState);
    }
    m_clipboardHistory->attach(*m_appState);
    if (m_clipboardPanel) {
        m_clipboardPanel->attach(*m_appState);
    }
    m_updateManager->startAutomaticChecks([this] { return m_appState->settings(); });
    m_appLayoutSwitch->start(*m_appState);
    m_permissions->refreshPermissions();
    // A permission reset restarts the program; this key carries the request across that restart, once.
    if (m_defaults->value(requestPermissionsOnLaunchKey).toBool()) {
        m_defaults->remove(requestPermissionsOnLaunchKey);
        m_permissions->requestPermissions();
    }
    // Whoever ends the program (the session manager at logout, say) asks the application to quit, which
    // first closes every window; the hidden main window would refuse that close unless it knows the
    // program is ending.
    QCoreApplication::instance()->installEventFilter(this);
    if (m_delegate) {
        m_delegate->start();
        // An autostarted program must not pop its window at every login: the setting decides.
        if (m_appState->settings().openMainWindowOnLaunch) {
            m_delegate->showMainWindow();
        } else {
            m_delegate->moveToMenuBarIfNeeded();
        }
    }
}
