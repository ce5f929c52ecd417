#pragma once

#include "hotkeys/HotkeyWindowTargets.h"

// Stands in for window tiling and display control until they exist: the chords stay claimed, presses do
// nothing.
class PendingWindowTargets : public HotkeyWindowTargets {
public:
    void toggleBuiltInDisplay() override {}
    void swapFocusedWindow(WindowSwapDirection) override {}
    void tileAllWindows() override {}
    void tileFocusedWindow(WindowTileSlot) override {}
    bool popOutActiveTabIfNeeded(WindowTileSlot) override { return false; }
};
