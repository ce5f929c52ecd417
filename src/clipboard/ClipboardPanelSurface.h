#pragma once

#include "core/SettingsEnums.h"

// The clipboard panel's window as its controller sees it; a widget implements it and binds to the
// controller for its contents. GUI thread; every member is non-blocking.
class ClipboardPanelSurface {
public:
    virtual ~ClipboardPanelSurface() = default;

    // Brings the panel up above other windows with the keyboard in its search field; beside the pointer
    // when placeNearMouse, else where it was.
    virtual void present(bool placeNearMouse) = 0;
    // Takes the panel off the screen; it is kept, with its contents, for the next show.
    virtual void orderOut() = 0;
    virtual bool isShown() const = 0;
    // Opaque identity of the panel's window, as the local input monitor reports it.
    virtual const void* windowIdentity() const = 0;
    virtual void setLook(AppearanceMode appearance, SurfaceMode surface) = 0;
};
