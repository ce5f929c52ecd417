#pragma once

// One colour of the theme: fixed sRGB components (0…1), or one of the platform's own colours, at an
// opacity. The views turn it into their toolkit's colour; the logic stays free of any GUI library.
struct ThemeColor {
    enum class Source { fixed, platformAccent, platformWindowBackground };

    Source source = Source::fixed;
    double red = 0;
    double green = 0;
    double blue = 0;
    double opacity = 1;

    static constexpr ThemeColor rgb(double red, double green, double blue, double opacity = 1)
    {
        return {Source::fixed, red, green, blue, opacity};
    }
    static constexpr ThemeColor clear() { return {Source::fixed, 0, 0, 0, 0}; }
    static constexpr ThemeColor platform(Source source, double opacity = 1)
    {
        return {source, 0, 0, 0, opacity};
    }

    bool isClear() const { return source == Source::fixed && opacity == 0; }
    bool operator==(const ThemeColor&) const = default;
};
