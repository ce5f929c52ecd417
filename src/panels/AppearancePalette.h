#pragma once

#include "core/SettingsEnums.h"
#include "panels/ThemeColor.h"

#include <utility>

enum class ColorScheme { light, dark };

// The colours every window and panel shares: a sheet of tinted glass whose tint follows the appearance and
// whose veil and border follow the light or dark scheme and whether surfaces are translucent or solid.
class AppearancePalette {
public:
    // The accent of controls; the platform's own accent for the system appearance.
    static ThemeColor accentColor(AppearanceMode mode);
    // The tint laid over the glass; clear for the system appearance.
    static ThemeColor surfaceTint(AppearanceMode mode);
    // The two stops of the background gradient, top first; clear for the system appearance.
    static std::pair<ThemeColor, ThemeColor> backgroundColors(AppearanceMode mode);
    // The veil over the glass. A solid surface is always veiled as in the dark scheme.
    static ThemeColor glassWash(SurfaceMode surface, ColorScheme scheme);
    // The overlay of the system appearance, which has no tint of its own.
    static ThemeColor systemSolidGlassOverlay(SurfaceMode surface, ColorScheme scheme);
    // The hairline around floating panels.
    static ThemeColor floatingBorderColor(SurfaceMode surface, ColorScheme scheme);
};
