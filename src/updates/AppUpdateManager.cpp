#include "updates/AppUpdateManager.h"

#include "core/DefaultsStore.h"
#include "core/MivoraError.h"
#include "platform/Updater.h"
#include "platform/UrlOpener.h"
#include "updates/UpdateAlertPresenter.h"

#include <QPointer>

namespace {

const QString lastAutomaticCheckKey = QStringLiteral("mivora.updates.lastAutomaticCheckAt");
const QString lastNotifiedBuildKey = QStringLiteral("mivora.updates.lastNotifiedBuild");
constexpr std::chrono::hours automaticCheckInterval{6};
constexpr std::chrono::hours automaticCheckMinimumGap{24};

} // namespace

AppUpdateManager::AppUpdateManager(std::unique_ptr<AppUpdateClient> client, DefaultsStore& defaults,
                                   Clock& clock, UrlOpener& urlOpener, Updater* updater, QObject* parent)
    : QObject(parent), m_client(std::move(client)), m_defaults(defaults), m_clock(clock),
      m_urlOpener(urlOpener), m_updater(updater),
      m_lastNotifiedBuild(defaults.value(lastNotifiedBuildKey).toLongLong())
{}

AppUpdateManager::~AppUpdateManager() = default;

void AppUpdateManager::clearAlertMessage()
{
    setAlertMessage(std::nullopt);
}

void AppUpdateManager::startAutomaticChecks(SettingsSource currentSettings)
{
    const MivoraSettings settings = currentSettings();
    if (settings.automaticUpdateChecksEnabled) {
        checkForUpdates(settings, CheckTrigger::launch);
    }
    // The timer dies with the manager, so the firing never outlives it. The settings are read at each
    // firing: turning checks off takes effect then, and the timer keeps running.
    m_automaticCheckTimer = m_clock.scheduleRepeating(automaticCheckInterval,
                                                      [this, currentSettings = std::move(currentSettings)] {
                                                          checkAutomaticallyIfNeeded(currentSettings());
                                                      });
}

QCoro::Task<> AppUpdateManager::checkAutomaticallyIfNeeded(MivoraSettings settings)
{
    if (!settings.automaticUpdateChecksEnabled) {
        co_return;
    }
    const std::optional<QDateTime> last = lastAutomaticCheckAt();
    if (last && last->msecsTo(m_clock.now()) < std::chrono::milliseconds(automaticCheckMinimumGap).count()) {
        co_return;
    }
    co_await checkForUpdates(settings, CheckTrigger::automatic);
}

void AppUpdateManager::checkManually(MivoraSettings settings)
{
    checkForUpdates(std::move(settings), CheckTrigger::manual);
}

QCoro::Task<> AppUpdateManager::checkForUpdates(MivoraSettings settings, CheckTrigger trigger)
{
    // A second check while one runs is dropped, not queued.
    if (m_isChecking) {
        co_return;
    }
    m_isChecking = true;
    m_message.reset();
    if (trigger == CheckTrigger::manual) {
        m_alertMessage.reset();
    }
    emit changed();

    const QPointer<AppUpdateManager> self(this);
    std::optional<AppUpdateSnapshot> result;
    QString failure;
    try {
        result = co_await m_client->check(settings.uiLanguage);
    } catch (const MivoraError& error) {
        failure = error.errorDescription();
    } catch (const std::exception&) {
        failure = QStringLiteral("Update check failed.");
    }
    if (!self) {
        co_return;
    }
    m_isChecking = false;
    if (!result) {
        m_message = failure;
        emit changed();
        // Automatic checks fail quietly; only the inline text tells.
        if (trigger == CheckTrigger::manual) {
            setAlertMessage(failure);
        }
        co_return;
    }
    m_snapshot = *result;
    if (trigger == CheckTrigger::automatic) {
        m_defaults.setValue(lastAutomaticCheckKey, m_clock.now().toUTC().toString(Qt::ISODateWithMs));
    }
    handleCheckResult(settings, trigger);
}

void AppUpdateManager::handleCheckResult(const MivoraSettings& settings, CheckTrigger trigger)
{
    const UiLanguage language = settings.uiLanguage;
    if (!m_snapshot.updateAvailable) {
        m_message = localized(language, "MivoraAI is up to date.", "Установлена актуальная версия MivoraAI.");
        emit changed();
        return;
    }
    const QString defaultText =
        language == UiLanguage::ru
            ? QStringLiteral("Доступна версия ") +
                  m_snapshot.latestVersion.value_or(QStringLiteral("новая")) + QStringLiteral(".")
            : QStringLiteral("Version ") + m_snapshot.latestVersion.value_or(QStringLiteral("new")) +
                  QStringLiteral(" is available.");
    m_message = m_snapshot.message.value_or(defaultText);
    emit changed();

    if (!m_snapshot.forceUpdate && trigger != CheckTrigger::manual) {
        if (!settings.updateNotificationsEnabled) {
            return;
        }
        // Once per build; an answer without a build number alerts every time.
        if (m_snapshot.latestBuild && m_lastNotifiedBuild >= *m_snapshot.latestBuild) {
            return;
        }
    }
    setAlertMessage(m_message);
    if (m_snapshot.latestBuild) {
        m_lastNotifiedBuild = *m_snapshot.latestBuild;
        m_defaults.setValue(lastNotifiedBuildKey, m_lastNotifiedBuild);
    }
}

void AppUpdateManager::openDownload()
{
    if (!m_snapshot.downloadURL) {
        m_message = QStringLiteral("Update download URL is not available.");
        emit changed();
        return;
    }
    if (!m_urlOpener.openUrl(*m_snapshot.downloadURL)) {
        m_message = QStringLiteral("Could not open update download.");
        emit changed();
        setAlertMessage(m_message);
    }
}

void AppUpdateManager::updateButtonPressed()
{
    clearAlertMessage();
    if (m_updater != nullptr && m_updater->canCheckForUpdates()) {
        m_updater->checkForUpdates();
        return;
    }
    openDownload();
}

void AppUpdateManager::setAlertMessage(std::optional<QString> text)
{
    m_alertMessage = std::move(text);
    emit changed();
    if (m_alertMessage && m_alerts != nullptr) {
        m_alerts->showUpdateAlert(*m_alertMessage);
    }
}

std::optional<QDateTime> AppUpdateManager::lastAutomaticCheckAt() const
{
    const QVariant stored = m_defaults.value(lastAutomaticCheckKey);
    const QDateTime when = stored.typeId() == QMetaType::QDateTime
                               ? stored.toDateTime()
                               : QDateTime::fromString(stored.toString(), Qt::ISODateWithMs);
    return when.isValid() ? std::optional<QDateTime>(when) : std::nullopt;
}
