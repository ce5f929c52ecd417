#pragma once

#include "hotkeys/HotkeyWindowTargets.h"

#include <functional>

// Stands in for window tiling until it exists: the chords stay claimed, presses do nothing. The display's
// chord goes to the hook the shell sets.
class PendingWindowTargets : public HotkeyWindowTargets {
public:
    std::function<void()> onToggleBuiltInDisplay;

    void toggleBuiltInDisplay() override
    {
        if (onToggleBuiltInDisplay) {
            onToggleBuiltInDisplay();
        }
    }
    void swapFocusedWindow(WindowSwapDirection) override {}
    void tileAllWindows() override {}
    void tileFocusedWindow(WindowTileSlot) override {}
    bool popOutActiveTabIfNeeded(WindowTileSlot) override { return false; }
};
