#pragma once

#include "core/ActionRunner.h"
#include "core/ActionStatus.h"
#include "core/Clock.h"
#include "core/MivoraSettings.h"
#include "core/PermissionState.h"
#include "core/SettingsService.h"
#include "core/StatusService.h"

#include <QObject>
#include <qcoro/qcorotask.h>

class ClipboardHistoryControl;
class KeyboardLayoutService;
class NativeSettingsStore;
class SystemSurfaceSignals;
class TextActionService;
class TextExchange;

// The single observable state of the program: every panel and service reads it, and every field change is
// announced by its signal. A facade over the parts that do the work: the settings (SettingsService), the
// status (StatusService) and the action runner (ActionRunner); the view-only fields live here. GUI thread.
class MivoraAppState : public QObject {
    Q_OBJECT
public:
    struct Services {
        Clock& clock;
        NativeSettingsStore& settingsStore;
        KeyboardLayoutService& keyboardLayout;
        TextActionService& actions;
        TextExchange& exchange;
        // May be null where the platform has no translucency settings.
        const SystemSurfaceSignals* surfaceSignals = nullptr;
    };

    explicit MivoraAppState(Services services, QObject* parent = nullptr);
    ~MivoraAppState() override;

    const MivoraSettings& settings() const { return m_settings.settings(); }
    // Every assignment saves the whole record and is announced, even when nothing changed.
    void setSettings(MivoraSettings settings) { m_settings.assign(std::move(settings)); }

    SettingsPage selectedSettingsPage() const { return m_selectedSettingsPage; }
    void setSelectedSettingsPage(SettingsPage page);
    const QList<QuickAction>& quickActions() const { return m_settings.quickActions(); }
    const QList<PromptStyle>& promptStyles() const { return m_settings.promptStyles(); }
    const QList<AIReplyStyle>& aiReplyStyles() const { return m_settings.aiReplyStyles(); }
    const ActionStatus& status() const { return m_status.status(); }
    // Shows the status and schedules its return to idle (StatusService::publish): the one way every panel
    // and service reports.
    void publishStatus(ActionStatus status) { m_status.publish(std::move(status)); }
    const PermissionState& permissionState() const { return m_permissionState; }
    void setPermissionState(PermissionState state);
    const QString& sampleText() const { return m_sampleText; }
    void setSampleText(QString text);
    const QString& latestOutput() const { return m_latestOutput; }
    const QString& targetLanguage() const { return m_settings.targetLanguage(); }
    SurfaceMode systemSurfaceMode() const { return m_systemSurfaceMode; }

    // Starts the action and returns at once; the work goes on in a coroutine on the GUI thread. Runs may
    // overlap; the later status simply overwrites the earlier one.
    void run(QuickAction action, bool pasteResult, bool updateSampleText);
    // The same run as a task, for callers (the command line) that wait for its end.
    QCoro::Task<> runToEnd(QuickAction action, bool pasteResult, bool updateSampleText);

    QString title(const QuickAction& action) const;
    QString styleTitle(const PromptStyle& style) const;

    // The style edits save once each; adding one also opens its page of the settings window.
    void addPromptStyle();
    void deletePromptStyle(const PromptStyle& style) { m_settings.deletePromptStyle(style); }
    void updatePromptStyle(const PromptStyle& style) { m_settings.updatePromptStyle(style); }
    void addAIReplyStyle();
    void deleteAIReplyStyle(const AIReplyStyle& style) { m_settings.deleteAIReplyStyle(style); }
    void updateAIReplyStyle(const AIReplyStyle& style) { m_settings.updateAIReplyStyle(style); }

    // The clipboard history arrives after the state at launch; until then clearing only reports.
    void setClipboardHistory(ClipboardHistoryControl* history) { m_clipboardHistory = history; }
    void clearClipboardHistory();

    void startSystemSurfaceObserver();
    void refreshSystemSurfaceMode();

signals:
    void settingsChanged();
    void selectedSettingsPageChanged();
    void quickActionsChanged();
    void promptStylesChanged();
    void aiReplyStylesChanged();
    void statusChanged();
    void permissionStateChanged();
    void sampleTextChanged();
    void latestOutputChanged();
    void targetLanguageChanged();
    void systemSurfaceModeChanged();

private:
    void setLatestOutput(QString text);

    Services m_services;
    ClipboardHistoryControl* m_clipboardHistory = nullptr;

    SettingsService m_settings;
    StatusService m_status;
    SettingsPage m_selectedSettingsPage = SettingsPage::general;
    PermissionState m_permissionState;
    QString m_sampleText = QStringLiteral("Hi, how are you?");
    QString m_latestOutput;
    SurfaceMode m_systemSurfaceMode = SurfaceMode::translucent;
    ClockTimer m_systemSurfaceTimer;
    // Last, so it goes first: a run that outlives it ends without touching the rest.
    ActionRunner m_runner;
};
