#include "panels/PanelPlacement.h"

#include <algorithm>

QPoint PanelPlacement::positionNearMouse(QPoint mouse, QRect visibleArea, QSize panel)
{
    // Lower bounds first and upper bounds last, so the top-left margin wins on a small screen.
    const int right = visibleArea.x() + visibleArea.width();
    const int bottom = visibleArea.y() + visibleArea.height();
    const int x = std::min(right - panel.width() - 16, std::max(visibleArea.x() + 16, mouse.x() + 14));
    const int y = std::max(visibleArea.y() + 16, std::min(bottom - panel.height() - 16, mouse.y() - 18));
    return {x, y};
}

QPoint PanelPlacement::statusOverlayPosition(QRect visibleArea, QSize panel)
{
    const int centreX = visibleArea.x() + visibleArea.width() / 2;
    const int bottom = visibleArea.y() + visibleArea.height();
    return {centreX - panel.width() / 2, bottom - 82 - panel.height()};
}
