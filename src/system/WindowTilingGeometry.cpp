#include "system/WindowTilingGeometry.h"

namespace {
// Whole pixels from here on: QRect's right() and bottom() are one short of the edge.
int maxX(const QRect& r)
{
    return r.x() + r.width();
}
int maxY(const QRect& r)
{
    return r.y() + r.height();
}
double centreX(const QRect& r)
{
    return r.x() + r.width() / 2.0;
}
double centreY(const QRect& r)
{
    return r.y() + r.height() / 2.0;
}

struct Position {
    bool fullHeight;
    bool right;
    bool bottom;
};

Position positionOf(const QRect& frame, const QRect& area)
{
    return {frame.height() > area.height() * 0.75, !(centreX(frame) < centreX(area)),
            !(centreY(frame) < centreY(area))};
}
} // namespace

QRect WindowTilingGeometry::cell(WindowTileSlot slot, const QRect& area)
{
    const QRect& r = area;
    const int halfWidth = r.width() / 2;
    const int halfHeight = r.height() / 2;
    const int rightWidth = r.width() - halfWidth;
    const int bottomHeight = r.height() - halfHeight;
    switch (slot) {
    case WindowTileSlot::full:
        return r;
    case WindowTileSlot::leftHalf:
        return {r.x(), r.y(), halfWidth, r.height()};
    case WindowTileSlot::rightHalf:
        return {r.x() + halfWidth, r.y(), rightWidth, r.height()};
    case WindowTileSlot::topLeft:
        return {r.x(), r.y(), halfWidth, halfHeight};
    case WindowTileSlot::topRight:
        return {r.x() + halfWidth, r.y(), rightWidth, halfHeight};
    case WindowTileSlot::bottomLeft:
        return {r.x(), r.y() + halfHeight, halfWidth, bottomHeight};
    case WindowTileSlot::bottomRight:
        return {r.x() + halfWidth, r.y() + halfHeight, rightWidth, bottomHeight};
    }
    return r;
}

WindowTileSlot WindowTilingGeometry::slotContaining(const QRect& frame, const QRect& area)
{
    const Position p = positionOf(frame, area);
    if (p.fullHeight) {
        return p.right ? WindowTileSlot::rightHalf : WindowTileSlot::leftHalf;
    }
    if (p.right) {
        return p.bottom ? WindowTileSlot::bottomRight : WindowTileSlot::topRight;
    }
    return p.bottom ? WindowTileSlot::bottomLeft : WindowTileSlot::topLeft;
}

std::optional<WindowTileSlot>
WindowTilingGeometry::adjacentSlot(const QRect& frame, WindowSwapDirection direction, const QRect& area)
{
    const Position p = positionOf(frame, area);
    using S = WindowTileSlot;
    switch (direction) {
    case WindowSwapDirection::left:
        if (!p.right) {
            return std::nullopt;
        }
        return p.fullHeight ? S::leftHalf : (p.bottom ? S::bottomLeft : S::topLeft);
    case WindowSwapDirection::right:
        if (p.right) {
            return std::nullopt;
        }
        return p.fullHeight ? S::rightHalf : (p.bottom ? S::bottomRight : S::topRight);
    case WindowSwapDirection::up:
        if (p.fullHeight || !p.bottom) {
            return std::nullopt;
        }
        return p.right ? S::topRight : S::topLeft;
    case WindowSwapDirection::down:
        if (p.fullHeight || p.bottom) {
            return std::nullopt;
        }
        return p.right ? S::bottomRight : S::bottomLeft;
    }
    return std::nullopt;
}

QList<WindowTileSlot> WindowTilingGeometry::tileAllSlots(int count)
{
    using S = WindowTileSlot;
    switch (count) {
    case 0:
        return {};
    case 1:
        return {S::full};
    case 2:
        return {S::leftHalf, S::rightHalf};
    case 3:
        return {S::leftHalf, S::topRight, S::bottomRight};
    default:
        return {S::topLeft, S::topRight, S::bottomLeft, S::bottomRight};
    }
}

QPoint WindowTilingGeometry::refusalAnchor(WindowTileSlot slot, const QRect& cell, QSize actualSize)
{
    using S = WindowTileSlot;
    const bool rightSide = slot == S::rightHalf || slot == S::topRight || slot == S::bottomRight;
    const bool bottomSide = slot == S::bottomLeft || slot == S::bottomRight;
    return {rightSide ? maxX(cell) - actualSize.width() : cell.x(),
            bottomSide ? maxY(cell) - actualSize.height() : cell.y()};
}

bool WindowTilingGeometry::fits(const QRect& cell, QSize actualSize)
{
    return !(cell.width() + 1 < actualSize.width()) && !(cell.height() + 1 < actualSize.height());
}

bool WindowTilingGeometry::centreLiesIn(const QRect& frame, const QRect& cell)
{
    const double x = centreX(frame);
    const double y = centreY(frame);
    return x >= cell.x() && x < maxX(cell) && y >= cell.y() && y < maxY(cell);
}

std::optional<qsizetype> WindowTilingGeometry::screenIndexFor(const QRect& frame,
                                                              const QList<QRect>& screenFrames)
{
    std::optional<qsizetype> best;
    qint64 bestArea = 0;
    for (qsizetype index = 0; index < screenFrames.size(); ++index) {
        const QRect common = screenFrames[index].intersected(frame);
        const qint64 area = common.isEmpty() ? 0 : qint64(common.width()) * common.height();
        if (area > bestArea) {
            bestArea = area;
            best = index;
        }
    }
    return best;
}
