#pragma once

#include "core/SettingsEnums.h"
#include "panels/StatusHUDContent.h"

// The overlay window as its controller sees it; a widget implements it. GUI thread.
class StatusHUDSurface {
public:
    virtual ~StatusHUDSurface() = default;

    // Replaces what is shown in place and brings the overlay up at its place on the primary screen, above
    // other windows, without taking the focus. Non-blocking.
    virtual void present(const StatusHUDContent& content, AppearanceMode appearance, SurfaceMode surface) = 0;
    // Takes the overlay off the screen; it is kept for the next status. Non-blocking.
    virtual void orderOut() = 0;
    virtual bool isShown() const = 0;
};
