#pragma once

#include "core/Clock.h"
#include "core/MivoraSettings.h"
#include "updates/AppUpdateClient.h"
#include "updates/AppUpdateSnapshot.h"

#include <QObject>
#include <functional>
#include <memory>
#include <optional>
#include <qcoro/qcorotask.h>

class DefaultsStore;
class UpdateAlertPresenter;
class Updater;
class UrlOpener;

// Decides when to ask the update server and whom to tell: at launch, every six hours at most once a day,
// and on request. Automatic news about one build is shown once; forced updates and manual checks always.
class AppUpdateManager : public QObject {
    Q_OBJECT
public:
    enum class CheckTrigger { launch, automatic, manual };
    using SettingsSource = std::function<MivoraSettings()>;

    // updater may be null where the platform has none. All other services must outlive the manager.
    AppUpdateManager(std::unique_ptr<AppUpdateClient> client, DefaultsStore& defaults, Clock& clock,
                     UrlOpener& urlOpener, Updater* updater, QObject* parent = nullptr);
    ~AppUpdateManager() override;

    const AppUpdateSnapshot& snapshot() const { return m_snapshot; }
    bool isChecking() const { return m_isChecking; }
    // Shown inline on the settings page.
    const std::optional<QString>& message() const { return m_message; }
    // Shown as an alert.
    const std::optional<QString>& alertMessage() const { return m_alertMessage; }
    void clearAlertMessage();
    // Who shows alerts from now on; null (the default: no face, as on the command line) leaves alertMessage
    // changing with nobody told. Must outlive the manager or be replaced first.
    void setAlertPresenter(UpdateAlertPresenter* alerts) { m_alerts = alerts; }

    // Called once at launch: checks now if the settings allow it, then every six hours.
    void startAutomaticChecks(SettingsSource currentSettings);
    // Checks unless automatic checks are off or the last periodic check is less than a day old.
    QCoro::Task<> checkAutomaticallyIfNeeded(MivoraSettings settings);
    // Starts a check whose result and failure are always shown.
    void checkManually(MivoraSettings settings);
    // Opens the download link of the last snapshot.
    void openDownload();
    // The update button: the platform updater when it can run, otherwise the download link.
    void updateButtonPressed();

signals:
    // Any of snapshot, isChecking, message, alertMessage changed.
    void changed();

private:
    QCoro::Task<> checkForUpdates(MivoraSettings settings, CheckTrigger trigger);
    void handleCheckResult(const MivoraSettings& settings, CheckTrigger trigger);
    void setAlertMessage(std::optional<QString> text);
    std::optional<QDateTime> lastAutomaticCheckAt() const;

    std::unique_ptr<AppUpdateClient> m_client;
    DefaultsStore& m_defaults;
    Clock& m_clock;
    UrlOpener& m_urlOpener;
    Updater* m_updater;
    UpdateAlertPresenter* m_alerts = nullptr;

    AppUpdateSnapshot m_snapshot;
    bool m_isChecking = false;
    std::optional<QString> m_message;
    std::optional<QString> m_alertMessage;
    qint64 m_lastNotifiedBuild = 0;
    ClockTimer m_automaticCheckTimer;
};
