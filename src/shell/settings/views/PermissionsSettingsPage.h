#pragma once

#include <QWidget>

class MivoraAppState;
class PermissionController;
class QLabel;
class QPushButton;

// The Permissions page: a badge for each grant and the buttons that refresh, request, open the settings of
// each grant and reset them. The grants are read again each time the page appears.
class PermissionsSettingsPage : public QWidget {
    Q_OBJECT
public:
    PermissionsSettingsPage(MivoraAppState& appState, PermissionController& permissions,
                            QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void refresh();
    void showBadge(QLabel* icon, QLabel* text, bool granted);

    MivoraAppState& m_appState;
    PermissionController& m_permissions;
    QLabel* m_rowTitles[2] = {};
    QLabel* m_badgeIcons[2] = {};
    QLabel* m_badgeTexts[2] = {};
    QPushButton* m_refresh = nullptr;
    QPushButton* m_request = nullptr;
    QPushButton* m_openAccessibility = nullptr;
    QPushButton* m_openInputMonitoring = nullptr;
    QPushButton* m_reset = nullptr;
    QLabel* m_resetNote = nullptr;
};
