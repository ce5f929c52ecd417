#pragma once

#include "shell/settings/views/SettingsPageWidget.h"

class PermissionController;
class QLabel;
class QPushButton;
class SettingsRow;

// The Permissions page: a badge for each grant and the buttons that refresh, request, open the settings of
// each grant and reset them. The grants are read again each time the page appears.
class PermissionsSettingsView : public SettingsPageWidget {
    Q_OBJECT
public:
    PermissionsSettingsView(MivoraAppState& appState, PermissionController& permissions,
                            QWidget* parent = nullptr);

protected:
    void refresh() override;
    void showEvent(QShowEvent* event) override;

private:
    void showBadge(SettingsRow* row, bool granted);

    PermissionController& m_permissions;
    SettingsRow* m_grants[2] = {};
    QPushButton* m_refresh = nullptr;
    QPushButton* m_request = nullptr;
    QPushButton* m_openAccessibility = nullptr;
    QPushButton* m_openInputMonitoring = nullptr;
    QPushButton* m_reset = nullptr;
    QLabel* m_resetNote = nullptr;
};
