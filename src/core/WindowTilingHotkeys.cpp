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

const QStringList& WindowTilingHotkeys::registrationOrder()
{
    static const QStringList ids{
        QStringLiteral("tileAll"),    QStringLiteral("topLeft"),        QStringLiteral("topRight"),
        QStringLiteral("bottomLeft"), QStringLiteral("bottomRight"),    QStringLiteral("leftHalf"),
        QStringLiteral("rightHalf"),  QStringLiteral("full"),           QStringLiteral("fill"),
        QStringLiteral("swapLeft"),   QStringLiteral("swapRight"),      QStringLiteral("swapUp"),
        QStringLiteral("swapDown"),   QStringLiteral("builtInDisplay"),
    };
    return ids;
}

std::optional<WindowTileSlot> WindowTilingHotkeys::slot(const QString& id)
{
    static const QMap<QString, WindowTileSlot> slotsById{
        {QStringLiteral("full"), WindowTileSlot::full},
        {QStringLiteral("fill"), WindowTileSlot::full},
        {QStringLiteral("leftHalf"), WindowTileSlot::leftHalf},
        {QStringLiteral("rightHalf"), WindowTileSlot::rightHalf},
        {QStringLiteral("topLeft"), WindowTileSlot::topLeft},
        {QStringLiteral("topRight"), WindowTileSlot::topRight},
        {QStringLiteral("bottomLeft"), WindowTileSlot::bottomLeft},
        {QStringLiteral("bottomRight"), WindowTileSlot::bottomRight},
    };
    const auto it = slotsById.constFind(id);
    return it == slotsById.cend() ? std::nullopt : std::optional(*it);
}

std::optional<WindowSwapDirection> WindowTilingHotkeys::swapDirection(const QString& id)
{
    static const QMap<QString, WindowSwapDirection> directions{
        {QStringLiteral("swapLeft"), WindowSwapDirection::left},
        {QStringLiteral("swapRight"), WindowSwapDirection::right},
        {QStringLiteral("swapUp"), WindowSwapDirection::up},
        {QStringLiteral("swapDown"), WindowSwapDirection::down},
    };
    const auto it = directions.constFind(id);
    return it == directions.cend() ? std::nullopt : std::optional(*it);
}
