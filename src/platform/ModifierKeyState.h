#pragma once

// The physical state of the modifier keys, whichever application has the focus.
class ModifierKeyState {
public:
    virtual ~ModifierKeyState() = default;

    // Whether Shift, Control, Alt/Option or the Super/Command key is held right now. GUI thread; one short
    // round trip to the display server at most.
    virtual bool isAnyModifierHeld() = 0;
};
