#pragma once

#include "platform/ModifierKeyState.h"

#include <vector>

// Xlib's own declaration, repeated so this header stays free of Xlib's macros.
typedef struct _XDisplay Display;

// The physical modifier keys from the server's key map (XQueryKeymap), so keys held for another
// application count too. Without a display nothing is ever held.
class X11ModifierKeyState : public ModifierKeyState {
public:
    // The display must outlive this object.
    explicit X11ModifierKeyState(Display* display);

    bool isAnyModifierHeld() override;

    // The keycodes that are down now and carry a modifier in the server's modifier map (Shift, Control,
    // Alt, Super, AltGr...), the lock keys aside; empty without a display. Two round trips.
    static std::vector<unsigned char> heldModifierKeys(Display* display);

private:
    Display* m_display;
};
