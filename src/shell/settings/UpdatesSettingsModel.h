#pragma once

#include <QObject>
#include <QString>
#include <optional>

class AppUpdateManager;
class MivoraAppState;

// The Updates page: what the last check found, the check and install buttons and the two switches, driven
// by the update manager. GUI thread.
class UpdatesSettingsModel : public QObject {
    Q_OBJECT
public:
    enum class Status { checking, updateRequired, updateAvailable, upToDate, notChecked };

    UpdatesSettingsModel(MivoraAppState& state, AppUpdateManager& updates, QString currentVersion,
                         QObject* parent = nullptr);

    Status status() const;
    QString statusTitle() const;
    // The symbol beside the status title.
    QString statusSymbol() const;
    // The manager's inline message, if any.
    std::optional<QString> message() const;
    QString checkButtonText() const;
    bool canCheck() const;
    const QString& currentVersion() const { return m_currentVersion; }
    QString availableVersion() const;
    QString lastChecked() const;
    std::optional<QString> releaseNotes() const;
    // Whether there is something to install.
    bool canInstall() const;

    void checkNow();
    // The platform's updater where there is one, otherwise the download link; any alert goes first.
    void install();

    bool automaticChecks() const;
    void setAutomaticChecks(bool enabled);
    bool notifications() const;
    void setNotifications(bool enabled);

signals:
    void changed();

private:
    QString text(const char* english, const char* russian) const;

    MivoraAppState& m_state;
    AppUpdateManager& m_updates;
    QString m_currentVersion;
};
