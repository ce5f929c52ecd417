#include "core/WindowTilingHotkeys.h"

const WindowTilingHotkeyMap& WindowTilingHotkeys::defaults()
{
    static const WindowTilingHotkeyMap map{
        {QStringLiteral("tileAll"), QStringLiteral("Control+Alt+4")},
        {QStringLiteral("topLeft"), QStringLiteral("Control+Alt+U")},
        {QStringLiteral("topRight"), QStringLiteral("Control+Alt+I")},
        {QStringLiteral("bottomLeft"), QStringLiteral("Control+Alt+J")},
        {QStringLiteral("bottomRight"), QStringLiteral("Control+Alt+K")},
        {QStringLiteral("leftHalf"), QStringLiteral("Control+Alt+Shift+Left")},
        {QStringLiteral("rightHalf"), QStringLiteral("Control+Alt+Shift+Right")},
        {QStringLiteral("swapLeft"), QStringLiteral("Control+Alt+Left")},
        {QStringLiteral("swapRight"), QStringLiteral("Control+Alt+Right")},
        {QStringLiteral("swapUp"), QStringLiteral("Control+Alt+Up")},
        {QStringLiteral("swapDown"), QStringLiteral("Control+Alt+Down")},
        {QStringLiteral("full"), QStringLiteral("Control+Alt+Return")},
        {QStringLiteral("fill"), QStringLiteral("Control+Alt+Shift+Up")},
        {QStringLiteral("builtInDisplay"), QStringLiteral("Control+Alt+0")},
    };
    return map;
}
