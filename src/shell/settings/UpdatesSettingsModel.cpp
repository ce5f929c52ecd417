#include "shell/settings/UpdatesSettingsModel.h"

#include "core/MivoraAppState.h"
#include "shell/settings/SettingsEdit.h"
#include "updates/AppUpdateManager.h"

#include <QLocale>

UpdatesSettingsModel::UpdatesSettingsModel(MivoraAppState& state, AppUpdateManager& updates,
                                           QString currentVersion, QObject* parent)
    : QObject(parent), m_state(state), m_updates(updates), m_currentVersion(std::move(currentVersion))
{
    connect(&state, &MivoraAppState::settingsChanged, this, &UpdatesSettingsModel::changed);
    connect(&updates, &AppUpdateManager::changed, this, &UpdatesSettingsModel::changed);
}

QString UpdatesSettingsModel::text(const char* english, const char* russian) const
{
    return localized(m_state.settings().uiLanguage, english, russian);
}

UpdatesSettingsModel::Status UpdatesSettingsModel::status() const
{
    const AppUpdateSnapshot& snapshot = m_updates.snapshot();
    if (m_updates.isChecking()) {
        return Status::checking;
    }
    if (snapshot.forceUpdate) {
        return Status::updateRequired;
    }
    if (snapshot.updateAvailable) {
        return Status::updateAvailable;
    }
    return snapshot.checkedAt ? Status::upToDate : Status::notChecked;
}

QString UpdatesSettingsModel::statusTitle() const
{
    switch (status()) {
    case Status::checking:
        return text("Checking for updates", "Проверяем обновления");
    case Status::updateRequired:
        return text("Update required", "Требуется обновление");
    case Status::updateAvailable:
        return text("Update available", "Доступно обновление");
    case Status::upToDate:
        return text("Up to date", "Версия актуальна");
    case Status::notChecked:
        break;
    }
    return text("Not checked yet", "Ещё не проверяли");
}

QString UpdatesSettingsModel::statusSymbol() const
{
    switch (status()) {
    case Status::checking:
        return QStringLiteral("arrow.triangle.2.circlepath");
    case Status::updateRequired:
        return QStringLiteral("exclamationmark.triangle.fill");
    case Status::updateAvailable:
        return QStringLiteral("arrow.down.circle.fill");
    case Status::upToDate:
        return QStringLiteral("checkmark.circle.fill");
    case Status::notChecked:
        break;
    }
    return QStringLiteral("clock");
}

std::optional<QString> UpdatesSettingsModel::message() const
{
    return m_updates.message();
}

QString UpdatesSettingsModel::checkButtonText() const
{
    return m_updates.isChecking() ? text("Checking...", "Проверяем...")
                                  : text("Check for Updates", "Проверить обновление");
}

bool UpdatesSettingsModel::canCheck() const
{
    return !m_updates.isChecking();
}

QString UpdatesSettingsModel::availableVersion() const
{
    return m_updates.snapshot().latestVersion.value_or(text("Not checked", "Нет данных"));
}

QString UpdatesSettingsModel::lastChecked() const
{
    const std::optional<QDateTime>& checkedAt = m_updates.snapshot().checkedAt;
    if (!checkedAt) {
        return text("Never", "Никогда");
    }
    const QLocale locale(m_state.settings().uiLanguage == UiLanguage::ru ? QLocale::Russian
                                                                         : QLocale::English);
    return locale.toString(checkedAt->toLocalTime(), QLocale::ShortFormat);
}

std::optional<QString> UpdatesSettingsModel::releaseNotes() const
{
    return m_updates.snapshot().releaseNotes;
}

bool UpdatesSettingsModel::canInstall() const
{
    const AppUpdateSnapshot& snapshot = m_updates.snapshot();
    return snapshot.updateAvailable || snapshot.forceUpdate;
}

void UpdatesSettingsModel::checkNow()
{
    m_updates.checkManually(m_state.settings());
}

void UpdatesSettingsModel::install()
{
    m_updates.updateButtonPressed();
}

bool UpdatesSettingsModel::automaticChecks() const
{
    return m_state.settings().automaticUpdateChecksEnabled;
}

void UpdatesSettingsModel::setAutomaticChecks(bool enabled)
{
    editSettings(m_state, [&](MivoraSettings& settings) { settings.automaticUpdateChecksEnabled = enabled; });
}

bool UpdatesSettingsModel::notifications() const
{
    return m_state.settings().updateNotificationsEnabled;
}

void UpdatesSettingsModel::setNotifications(bool enabled)
{
    editSettings(m_state, [&](MivoraSettings& settings) { settings.updateNotificationsEnabled = enabled; });
}
