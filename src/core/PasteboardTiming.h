#pragma once

#include <chrono>

// Delays of one transient clipboard use, in milliseconds.
struct PasteboardTiming {
    int activationDelay = 0;
    int selectAllDelay = 0;
    // 0 selects polling instead of a fixed wait after the copy shortcut.
    int copyDelay = 0;
    int copyDelayStep = 0;
    int pasteDelay = 0;
    int restoreDelay = 0;
    bool waitsForModifierKeys = false;

    bool operator==(const PasteboardTiming&) const = default;

    // Everything but the layout fix and the reply hotkey.
    static constexpr PasteboardTiming standardTiming() { return {180, 120, 180, 120, 180, 1300, true}; }
    // The layout fix and the reply hotkey, once the accessibility route has given nothing.
    static constexpr PasteboardTiming quickTiming() { return {0, 0, 0, 0, 0, 60, false}; }

    static std::chrono::milliseconds ms(int value) { return std::chrono::milliseconds(value); }
};
