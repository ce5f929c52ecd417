#include "text/KeyboardInputSource.h"

#include <QLatin1StringView>
#include <array>

bool KeyboardInputSource::isLatin() const
{
    static constexpr std::array<QLatin1StringView, 5> markers = {
        QLatin1StringView("abc"), QLatin1StringView("u.s."), QLatin1StringView("us"),
        QLatin1StringView("roman"), QLatin1StringView("latin")};
    const QString haystack = (name + QLatin1Char(' ') + id).toLower();
    for (const QLatin1StringView marker : markers) {
        if (haystack.contains(marker))
            return true;
    }
    return false;
}
