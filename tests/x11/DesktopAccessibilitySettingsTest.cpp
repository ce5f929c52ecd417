#include "platform/x11/DesktopAccessibilitySettings.h"

#include <gtest/gtest.h>

TEST(DesktopAccessibilitySettingsTest, TheDesktopNamedFirstThatIsKnownChoosesTheSettingsProgram)
{
    const QStringList gnome{"gnome-control-center", "universal-access"};
    const QStringList kde{"systemsettings", "kcm_access"};
    const QStringList xfce{"xfce4-accessibility-settings"};
    const std::pair<QString, std::optional<QStringList>> cases[] = {
        {"GNOME", gnome},   {"ubuntu:GNOME", gnome}, {"Budgie:GNOME", gnome},      {"KDE", kde},
        {"kde", kde},       {"XFCE", xfce},          {"X-Cinnamon", std::nullopt}, {"LXQt", std::nullopt},
        {"", std::nullopt},
    };
    for (const auto& [desktop, command] : cases) {
        EXPECT_EQ(accessibilitySettingsCommand(desktop), command) << desktop.toStdString();
    }
}
