#pragma once

// The floating button's window as its controller sees it; a widget implements it. GUI thread.
class FloatingButtonSurface {
public:
    virtual ~FloatingButtonSurface() = default;

    // Brings the button up above other windows without ever taking the focus: beside the pointer when
    // placeNearMouse, where it is otherwise. Non-blocking.
    virtual void orderFront(bool placeNearMouse) = 0;
    // Takes the button off the screen; it is kept. Non-blocking.
    virtual void orderOut() = 0;
    virtual bool isShown() const = 0;
};
