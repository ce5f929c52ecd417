#pragma once

#include <QMap>
#include <QString>

// Tiling id to hotkey text.
using WindowTilingHotkeyMap = QMap<QString, QString>;

namespace WindowTilingHotkeys {
// The 14 tiling ids with their default hotkeys.
const WindowTilingHotkeyMap& defaults();
} // namespace WindowTilingHotkeys
