#include "shell/settings/views/PlatformKeyNames.h"

#include <QGuiApplication>

PlatformKeyNames PlatformKeyNames::current()
{
    if (QGuiApplication::platformName() == QLatin1String("cocoa")) {
        return {QStringLiteral("Command"), QStringLiteral("Option")};
    }
    return {QStringLiteral("Super"), QStringLiteral("Alt")};
}
