#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

// Where floating panels go, in screen coordinates with the origin at the top left and y down. Pure
// geometry; the views ask the platform for the pointer and the screens.
class PanelPlacement {
public:
    // Beside the pointer, kept 16 px inside the visible area; on a screen too small for the panel the top
    // and left margins win, so the panel's title never leaves the screen.
    static QPoint positionNearMouse(QPoint mouse, QRect visibleArea, QSize panel);
    // Centred at the bottom of the visible area, 82 px above its lower edge: the status overlay's place.
    static QPoint statusOverlayPosition(QRect visibleArea, QSize panel);
};
