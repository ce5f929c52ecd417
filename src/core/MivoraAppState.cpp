#include "core/MivoraAppState.h"

#include "core/ActionTitles.h"
#include "core/ClipboardHistoryControl.h"

using namespace std::chrono_literals;

MivoraAppState::MivoraAppState(Services services, QObject* parent)
    : QObject(parent), m_services(services), m_settings(services.settingsStore), m_status(services.clock),
      m_systemSurfaceMode(systemResolvedSurfaceMode(services.surfaceSignals)),
      m_runner({m_settings, m_status, services.keyboardLayout, services.actions, services.exchange},
               {[this] { return m_sampleText; },
                [this](const QString& output, bool updateSampleText) {
                    setLatestOutput(output);
                    if (updateSampleText) {
                        setSampleText(output);
                    }
                }})
{
    connect(&m_settings, &SettingsService::changed, this, [this] {
        emit promptStylesChanged();
        emit aiReplyStylesChanged();
        emit quickActionsChanged();
        emit targetLanguageChanged();
        emit settingsChanged();
    });
    connect(&m_status, &StatusService::statusChanged, this, &MivoraAppState::statusChanged);
}

MivoraAppState::~MivoraAppState() = default;

void MivoraAppState::setSelectedSettingsPage(SettingsPage page)
{
    m_selectedSettingsPage = page;
    emit selectedSettingsPageChanged();
}

void MivoraAppState::setPermissionState(PermissionState state)
{
    m_permissionState = state;
    emit permissionStateChanged();
}

void MivoraAppState::setSampleText(QString text)
{
    m_sampleText = std::move(text);
    emit sampleTextChanged();
}

void MivoraAppState::setLatestOutput(QString text)
{
    m_latestOutput = std::move(text);
    emit latestOutputChanged();
}

void MivoraAppState::run(QuickAction action, bool pasteResult, bool updateSampleText)
{
    // The coroutine starts eagerly and runs its synchronous prefix now; dropping the task lets it finish
    // alone.
    m_runner.run(std::move(action), pasteResult, updateSampleText);
}

QCoro::Task<> MivoraAppState::runToEnd(QuickAction action, bool pasteResult, bool updateSampleText)
{
    return m_runner.run(std::move(action), pasteResult, updateSampleText);
}

QString MivoraAppState::title(const QuickAction& action) const
{
    return actionTitle(action, promptStyles(), settings().uiLanguage);
}

QString MivoraAppState::styleTitle(const PromptStyle& style) const
{
    return ::styleTitle(style, settings().uiLanguage);
}

void MivoraAppState::addPromptStyle()
{
    m_settings.addPromptStyle();
    setSelectedSettingsPage(SettingsPage::styles);
}

void MivoraAppState::addAIReplyStyle()
{
    m_settings.addAIReplyStyle();
    setSelectedSettingsPage(SettingsPage::aiReply);
}

void MivoraAppState::clearClipboardHistory()
{
    if (m_clipboardHistory) {
        m_clipboardHistory->clearHistory();
    }
    publishStatus(ActionStatus::done(
        localized(settings().uiLanguage, "Clipboard history cleared", "История буфера очищена")));
}

void MivoraAppState::refreshSystemSurfaceMode()
{
    const SurfaceMode resolved = systemResolvedSurfaceMode(m_services.surfaceSignals);
    if (resolved != m_systemSurfaceMode) {
        m_systemSurfaceMode = resolved;
        emit systemSurfaceModeChanged();
    }
}

void MivoraAppState::startSystemSurfaceObserver()
{
    refreshSystemSurfaceMode();
    if (m_systemSurfaceTimer.isActive()) {
        return;
    }
    m_systemSurfaceTimer = m_services.clock.scheduleRepeating(750ms, [this] { refreshSystemSurfaceMode(); });
}
