#pragma once

#include "platform/DisplayControl.h"

// What the tray menu needs to know of the built-in display. Absent where the platform cannot switch a
// display, which leaves the display item out.
struct BuiltInDisplayMenuState {
    // A display was switched off by this program and is still off.
    bool isSwitchedOff = false;
    // A built-in display is active now.
    bool hasActiveBuiltIn = false;
    // It may be switched off: another display is active and it is not mirrored.
    bool canSwitchOff = false;
    // Chooses the item's wording.
    DisplayControl::PanelName panelName = DisplayControl::PanelName::macBookDisplay;
};
