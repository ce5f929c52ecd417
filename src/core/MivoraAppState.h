#pragma once

#include "core/ActionStatus.h"
#include "core/Clock.h"
#include "core/MivoraSettings.h"
#include "core/PermissionState.h"

#include <QObject>
#include <qcoro/qcorotask.h>

class ClipboardHistoryControl;
class KeyboardLayoutService;
class NativeSettingsStore;
class SystemSurfaceSignals;
class TextActionService;
class TextExchange;

// The single observable state of the program and its action runner. GUI thread only; every field change
// is announced by its signal.
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

    const MivoraSettings& settings() const { return m_settings; }
    // Every assignment saves the whole record and is announced, even when nothing changed.
    void setSettings(MivoraSettings settings);

    SettingsPage selectedSettingsPage() const { return m_selectedSettingsPage; }
    void setSelectedSettingsPage(SettingsPage page);
    const QList<QuickAction>& quickActions() const { return m_quickActions; }
    const QList<PromptStyle>& promptStyles() const { return m_promptStyles; }
    const QList<AIReplyStyle>& aiReplyStyles() const { return m_aiReplyStyles; }
    const ActionStatus& status() const { return m_status; }
    void setStatus(ActionStatus status);
    const PermissionState& permissionState() const { return m_permissionState; }
    void setPermissionState(PermissionState state);
    const QString& sampleText() const { return m_sampleText; }
    void setSampleText(QString text);
    const QString& latestOutput() const { return m_latestOutput; }
    const QString& targetLanguage() const { return m_targetLanguage; }
    SurfaceMode systemSurfaceMode() const { return m_systemSurfaceMode; }

    // Starts the action and returns at once; the work goes on in a coroutine on the GUI thread. Runs may
    // overlap; the later status simply overwrites the earlier one.
    void run(QuickAction action, bool pasteResult, bool updateSampleText);
    // The same run as a task, for callers (the command line) that wait for its end.
    QCoro::Task<> runToEnd(QuickAction action, bool pasteResult, bool updateSampleText);

    QString title(const QuickAction& action) const;
    QString styleTitle(const PromptStyle& style) const;

    // Cancels a pending reset; after done or failed, returns the status to idle unless it changed meanwhile.
    void scheduleStatusReset(const ActionStatus& status);

    void addPromptStyle();
    void deletePromptStyle(const PromptStyle& style);
    void updatePromptStyle(const PromptStyle& style);
    void addAIReplyStyle();
    void deleteAIReplyStyle(const AIReplyStyle& style);
    void updateAIReplyStyle(const AIReplyStyle& style);

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
    void publish(ActionStatus status);
    void setLatestOutput(QString text);
    void copyDerivedFieldsFromSettings();
    UiLanguage language() const { return m_settings.uiLanguage; }

    Services m_services;
    ClipboardHistoryControl* m_clipboardHistory = nullptr;

    SettingsPage m_selectedSettingsPage = SettingsPage::general;
    QList<QuickAction> m_quickActions;
    QList<PromptStyle> m_promptStyles;
    QList<AIReplyStyle> m_aiReplyStyles;
    ActionStatus m_status;
    PermissionState m_permissionState;
    QString m_sampleText = QStringLiteral("Hi, how are you?");
    QString m_latestOutput;
    QString m_targetLanguage = QStringLiteral("English");
    MivoraSettings m_settings;
    SurfaceMode m_systemSurfaceMode = SurfaceMode::translucent;

    ClockTimer m_statusResetTimer;
    ClockTimer m_systemSurfaceTimer;
};
