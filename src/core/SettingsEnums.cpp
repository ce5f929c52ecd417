#include "core/SettingsEnums.h"

#include "platform/SystemSurfaceSignals.h"

QString symbolName(SettingsPage page)
{
    switch (page) {
    case SettingsPage::general:
        return QStringLiteral("gearshape");
    case SettingsPage::actions:
        return QStringLiteral("sparkles");
    case SettingsPage::styles:
        return QStringLiteral("text.badge.star");
    case SettingsPage::aiReply:
        return QStringLiteral("bubble.left.and.text.bubble.right");
    case SettingsPage::quickMenu:
        return QStringLiteral("bolt.circle");
    case SettingsPage::clipboard:
        return QStringLiteral("clipboard");
    case SettingsPage::layout:
    case SettingsPage::shortcuts:
        return QStringLiteral("keyboard");
    case SettingsPage::permissions:
        return QStringLiteral("lock.shield");
    case SettingsPage::updates:
        return QStringLiteral("arrow.down.circle");
    }
    return {};
}

SurfaceMode systemResolvedSurfaceMode(const SystemSurfaceSignals* surfaceSignals)
{
    if (!surfaceSignals) {
        return SurfaceMode::translucent;
    }
    if (surfaceSignals->reduceTransparency()) {
        return SurfaceMode::solid;
    }
    for (const auto& setting :
         {surfaceSignals->processGlassDiffusion(), surfaceSignals->globalGlassDiffusion()}) {
        if (setting) {
            return *setting != 0 ? SurfaceMode::solid : SurfaceMode::translucent;
        }
    }
    return SurfaceMode::translucent;
}
