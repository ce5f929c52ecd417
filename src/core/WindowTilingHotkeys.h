#pragma once

#include <QMap>
#include <QString>
#include <QStringList>
#include <optional>

// Tiling id to hotkey text.
using WindowTilingHotkeyMap = QMap<QString, QString>;

enum class WindowTileSlot { full, leftHalf, rightHalf, topLeft, topRight, bottomLeft, bottomRight };
enum class WindowSwapDirection { left, right, up, down };

namespace WindowTilingHotkeys {
// The 14 tiling ids with their default hotkeys.
const WindowTilingHotkeyMap& defaults();
// The tiling ids in the order their hotkeys are registered.
const QStringList& registrationOrder();
// "full" and "fill" are two ids for one slot, each with its own default hotkey.
std::optional<WindowTileSlot> slot(const QString& id);
std::optional<WindowSwapDirection> swapDirection(const QString& id);
} // namespace WindowTilingHotkeys
