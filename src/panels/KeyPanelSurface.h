#pragma once

// A floating panel the user types into, as its controller sees it; a widget implements it. GUI thread.
class KeyPanelSurface {
public:
    virtual ~KeyPanelSurface() = default;

    // Brings the panel up with the keyboard focus: beside the pointer when it was hidden, where it stands
    // when it was shown. Non-blocking.
    virtual void present() = 0;
    // Takes the panel off the screen; it is kept with its contents. Non-blocking.
    virtual void orderOut() = 0;
    virtual bool isShown() const = 0;
};
