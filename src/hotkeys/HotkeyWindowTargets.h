#pragma once

#include "core/WindowTilingHotkeys.h"

// Desktop actions a tiling hotkey can trigger. GUI thread; each call returns at once and fails silently.
class HotkeyWindowTargets {
public:
    virtual ~HotkeyWindowTargets() = default;

    // Turns the built-in display on when this program turned it off, else off.
    virtual void toggleBuiltInDisplay() = 0;
    virtual void swapFocusedWindow(WindowSwapDirection direction) = 0;
    virtual void tileAllWindows() = 0;
    virtual void tileFocusedWindow(WindowTileSlot slot) = 0;
    // For the half slots: turns a browser tab into its own window there; true when it did.
    virtual bool popOutActiveTabIfNeeded(WindowTileSlot slot) = 0;
};
