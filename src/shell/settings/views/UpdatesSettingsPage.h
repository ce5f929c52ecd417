#pragma once

#include <QWidget>

class AppUpdateManager;
class MivoraAppState;
class QCheckBox;
class QLabel;
class QPushButton;
class UpdatesSettingsModel;

// The Updates page: the status of the last check with its message, the version rows, the release notes,
// the check and install buttons, and the two switches of automatic checks and notifications.
class UpdatesSettingsPage : public QWidget {
    Q_OBJECT
public:
    UpdatesSettingsPage(MivoraAppState& appState, AppUpdateManager& updates, const QString& currentVersion,
                        QWidget* parent = nullptr);

private:
    void refresh();

    MivoraAppState& m_appState;
    UpdatesSettingsModel* m_model = nullptr;
    QLabel* m_heading = nullptr;
    QLabel* m_statusIcon = nullptr;
    QLabel* m_statusTitle = nullptr;
    QLabel* m_message = nullptr;
    QPushButton* m_installShort = nullptr;
    QPushButton* m_check = nullptr;
    QLabel* m_rowLabels[3] = {};
    QLabel* m_rowValues[3] = {};
    QLabel* m_notesTitle = nullptr;
    QLabel* m_notes = nullptr;
    QPushButton* m_install = nullptr;
    QCheckBox* m_automatic = nullptr;
    QCheckBox* m_notifications = nullptr;
    QLabel* m_note = nullptr;
    bool m_refreshing = false;
};
