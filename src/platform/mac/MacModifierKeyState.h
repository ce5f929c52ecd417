#pragma once

#include "platform/ModifierKeyState.h"

// The modifier flags of the combined session state: every keyboard, whichever application has the focus.
class MacModifierKeyState : public ModifierKeyState {
public:
    bool isAnyModifierHeld() override;
};
