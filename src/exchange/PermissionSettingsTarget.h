#pragma once

#include <QUrl>

// The settings pane where the user grants what the exchange with other applications needs.
enum class PermissionSettingsTarget { accessibility, inputMonitoring, privacy };

inline QUrl permissionSettingsUrl(PermissionSettingsTarget target)
{
    switch (target) {
    case PermissionSettingsTarget::accessibility:
        return QUrl(
            QStringLiteral("x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility"));
    case PermissionSettingsTarget::inputMonitoring:
        return QUrl(
            QStringLiteral("x-apple.systempreferences:com.apple.preference.security?Privacy_ListenEvent"));
    case PermissionSettingsTarget::privacy:
        break;
    }
    return QUrl(QStringLiteral("x-apple.systempreferences:com.apple.preference.security"));
}
