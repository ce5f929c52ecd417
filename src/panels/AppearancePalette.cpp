#include "panels/AppearancePalette.h"

namespace {

struct ModeColors {
    ThemeColor accent;
    ThemeColor tint;
    ThemeColor top;
    ThemeColor bottom;
};

ModeColors colorsOf(AppearanceMode mode)
{
    using C = ThemeColor;
    switch (mode) {
    case AppearanceMode::system:
        return {C::platform(C::Source::platformAccent), C::clear(), C::clear(), C::clear()};
    case AppearanceMode::liquidSky:
        return {C::rgb(0.25, 0.62, 1.0), C::rgb(0.18, 0.52, 1.0), C::rgb(0.12, 0.42, 0.86),
                C::rgb(0.05, 0.17, 0.36)};
    case AppearanceMode::liquidViolet:
        return {C::rgb(0.58, 0.42, 1.0), C::rgb(0.48, 0.3, 1.0), C::rgb(0.35, 0.2, 0.86),
                C::rgb(0.12, 0.08, 0.32)};
    case AppearanceMode::liquidMint:
        return {C::rgb(0.2, 0.78, 0.58), C::rgb(0.1, 0.66, 0.48), C::rgb(0.08, 0.54, 0.42),
                C::rgb(0.04, 0.22, 0.18)};
    case AppearanceMode::liquidRose:
        return {C::rgb(1.0, 0.38, 0.62), C::rgb(1.0, 0.28, 0.5), C::rgb(0.78, 0.2, 0.42),
                C::rgb(0.3, 0.08, 0.18)};
    case AppearanceMode::liquidNoir:
        return {C::rgb(0.64, 0.66, 0.72), C::rgb(0.12, 0.13, 0.16), C::rgb(0.08, 0.09, 0.11),
                C::rgb(0.02, 0.02, 0.03)};
    }
    return colorsOf(AppearanceMode::system);
}

constexpr ThemeColor white(double opacity)
{
    return ThemeColor::rgb(1, 1, 1, opacity);
}

constexpr ThemeColor black(double opacity)
{
    return ThemeColor::rgb(0, 0, 0, opacity);
}

} // namespace

ThemeColor AppearancePalette::accentColor(AppearanceMode mode)
{
    return colorsOf(mode).accent;
}

ThemeColor AppearancePalette::surfaceTint(AppearanceMode mode)
{
    return colorsOf(mode).tint;
}

std::pair<ThemeColor, ThemeColor> AppearancePalette::backgroundColors(AppearanceMode mode)
{
    const ModeColors colors = colorsOf(mode);
    return {colors.top, colors.bottom};
}

ThemeColor AppearancePalette::glassWash(SurfaceMode surface, ColorScheme scheme)
{
    const bool solid = surface == SurfaceMode::solid;
    if (solid) {
        scheme = ColorScheme::dark;
    }
    if (scheme == ColorScheme::light) {
        return white(solid ? 0.34 : 0.18);
    }
    return black(solid ? 0.36 : 0.24);
}

ThemeColor AppearancePalette::systemSolidGlassOverlay(SurfaceMode surface, ColorScheme scheme)
{
    if (surface != SurfaceMode::solid) {
        return ThemeColor::platform(ThemeColor::Source::platformWindowBackground, 0.12);
    }
    if (scheme == ColorScheme::light) {
        return ThemeColor::platform(ThemeColor::Source::platformWindowBackground, 0.18);
    }
    return ThemeColor::rgb(0.11, 0.11, 0.115, 0.16);
}

ThemeColor AppearancePalette::floatingBorderColor(SurfaceMode surface, ColorScheme scheme)
{
    if (surface != SurfaceMode::solid) {
        return white(0.12);
    }
    return scheme == ColorScheme::light ? black(0.1) : white(0.16);
}
