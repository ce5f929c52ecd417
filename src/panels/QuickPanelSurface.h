#pragma once

// The quick panel's window as its controller sees it; a widget implements it. GUI thread.
class QuickPanelSurface {
public:
    virtual ~QuickPanelSurface() = default;

    // Brings the panel up above other windows without taking the focus from the application in front:
    // beside the pointer when placeNearMouse, where it is otherwise. Non-blocking.
    virtual void orderFront(bool placeNearMouse) = 0;
    // Takes the panel off the screen; it is kept. Non-blocking.
    virtual void orderOut() = 0;
    virtual bool isShown() const = 0;
    // The window's identity as the local input monitor reports it.
    virtual const void* windowIdentity() const = 0;
};
