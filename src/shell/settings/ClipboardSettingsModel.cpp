#include "shell/settings/ClipboardSettingsModel.h"

#include "clipboard/ClipboardHistoryService.h"
#include "core/MivoraAppState.h"
#include "shell/settings/SettingsEdit.h"

#include <algorithm>

ClipboardSettingsModel::ClipboardSettingsModel(MivoraAppState& state, ClipboardHistoryService& history,
                                               QObject* parent)
    : QObject(parent), m_state(state), m_history(history)
{
    connect(&state, &MivoraAppState::settingsChanged, this, &ClipboardSettingsModel::settingsChanged);
    connect(&history, &ClipboardHistoryService::itemsChanged, this, &ClipboardSettingsModel::itemsChanged);
}

bool ClipboardSettingsModel::historyEnabled() const
{
    return m_state.settings().clipboardHistoryEnabled;
}

void ClipboardSettingsModel::setHistoryEnabled(bool enabled)
{
    editSettings(m_state,
                 [enabled](MivoraSettings& settings) { settings.clipboardHistoryEnabled = enabled; });
}

QString ClipboardSettingsModel::limitText() const
{
    const MivoraSettings& settings = m_state.settings();
    return localized(settings.uiLanguage, "History limit: %1", "Лимит истории: %1")
        .arg(settings.clipboardLimit);
}

bool ClipboardSettingsModel::canStep(int direction) const
{
    const int limit = m_state.settings().clipboardLimit;
    return direction < 0 ? limit > stepperMinimum : limit < stepperMaximum;
}

void ClipboardSettingsModel::step(int direction)
{
    if (!canStep(direction)) {
        return;
    }
    editSettings(m_state, [direction](MivoraSettings& settings) {
        settings.clipboardLimit =
            std::clamp(settings.clipboardLimit + (direction < 0 ? -1 : 1), stepperMinimum, stepperMaximum);
    });
}

QString ClipboardSettingsModel::daysText() const
{
    const MivoraSettings& settings = m_state.settings();
    if (settings.clipboardDays == u"forever") {
        return localized(settings.uiLanguage, "forever", "всегда");
    }
    return settings.clipboardDays;
}

void ClipboardSettingsModel::clearHistory()
{
    m_state.clearClipboardHistory();
}

const QList<ClipboardHistoryItem>& ClipboardSettingsModel::items() const
{
    return m_history.items();
}

void ClipboardSettingsModel::putBack(const QString& itemId)
{
    if (m_history.putBack(itemId)) {
        m_state.publishStatus(
            ActionStatus::done(localized(m_state.settings().uiLanguage, "Pasted", "Вставлено")));
    }
}

void ClipboardSettingsModel::remove(const QString& itemId)
{
    m_history.removeItem(itemId);
}
