#include "DesktopAccessibilitySettings.h"

std::optional<QStringList> accessibilitySettingsCommand(const QString& currentDesktop)
{
    struct Known {
        const char* desktop;
        const char* program;
        const char* page;
    };
    // Desktops built on GNOME's settings name GNOME in the list after their own name ("ubuntu:GNOME").
    static constexpr Known known[] = {
        {"GNOME", "gnome-control-center", "universal-access"},
        {"KDE", "systemsettings", "kcm_access"},
        {"XFCE", "xfce4-accessibility-settings", nullptr},
    };
    for (const QString& name : currentDesktop.split(u':', Qt::SkipEmptyParts)) {
        for (const Known& entry : known) {
            if (name.trimmed().compare(QLatin1String(entry.desktop), Qt::CaseInsensitive) == 0) {
                QStringList command{QString::fromLatin1(entry.program)};
                if (entry.page != nullptr) {
                    command.append(QString::fromLatin1(entry.page));
                }
                return command;
            }
        }
    }
    return std::nullopt;
}
