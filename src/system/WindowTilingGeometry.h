#pragma once

#include "core/WindowTilingHotkeys.h"

#include <QList>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <optional>

// The pure geometry of tiling, on rectangles in desktop pixels (origin top left, y down).
namespace WindowTilingGeometry {
// The slot's cell of area: halves and quarters with no gaps; the rounded-down halves go to the left and top.
QRect cell(WindowTileSlot slot, const QRect& area);
// The half or quarter of area that the frame's centre lies in; a frame taller than three quarters of the
// area counts as a half. A centre on the middle line counts as right or bottom. Never full.
WindowTileSlot slotContaining(const QRect& frame, const QRect& area);
// The slot beside the one the frame holds in that direction; nullopt at the area's edge.
std::optional<WindowTileSlot> adjacentSlot(const QRect& frame, WindowSwapDirection direction,
                                           const QRect& area);
// The slots for laying out count windows, front-most first; empty for none, the first four for more.
QList<WindowTileSlot> tileAllSlots(int count);
// Where a window of actualSize that refused to shrink to its cell goes: inside the cell on the side that
// faces the screen edge.
QPoint refusalAnchor(WindowTileSlot slot, const QRect& cell, QSize actualSize);
// Whether a window of actualSize fits the cell, a surplus of one pixel being tolerated.
bool fits(const QRect& cell, QSize actualSize);
// Whether the frame's centre lies in the cell (left and top edges in, right and bottom edges out).
bool centreLiesIn(const QRect& frame, const QRect& cell);
// Index of the screen frame sharing the largest area with frame; ties go to the earlier one; nullopt when
// the frame touches none.
std::optional<qsizetype> screenIndexFor(const QRect& frame, const QList<QRect>& screenFrames);
} // namespace WindowTilingGeometry
