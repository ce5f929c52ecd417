#pragma once

#include "shell/settings/views/SettingsPageWidget.h"

class AppUpdateManager;
class QLabel;
class QPushButton;
class SettingsCard;
class SettingsRow;
class UpdatesSettingsModel;

// The Updates page: the status of the last check with its message, the version rows, the release notes,
// the check and install buttons, and the two switches of automatic checks and notifications.
class UpdatesSettingsView : public SettingsPageWidget {
    Q_OBJECT
public:
    UpdatesSettingsView(MivoraAppState& appState, AppUpdateManager& updates, const QString& currentVersion,
                        QWidget* parent = nullptr);

protected:
    void refresh() override;

private:
    UpdatesSettingsModel* m_model = nullptr;
    QLabel* m_heading = nullptr;
    QLabel* m_statusIcon = nullptr;
    QLabel* m_statusTitle = nullptr;
    QLabel* m_message = nullptr;
    QPushButton* m_installShort = nullptr;
    QPushButton* m_check = nullptr;
    SettingsRow* m_versionRows[3] = {};
    QLabel* m_notesHeading = nullptr;
    SettingsCard* m_notesCard = nullptr;
    QLabel* m_notes = nullptr;
    QPushButton* m_install = nullptr;
    SettingsRow* m_automatic = nullptr;
    SettingsRow* m_notifications = nullptr;
    QLabel* m_note = nullptr;
};
