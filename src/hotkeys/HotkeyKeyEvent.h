#pragma once

#include "hotkeys/HotkeyModifier.h"
#include "hotkeys/MacKeyCode.h"

#include <QString>
#include <optional>

// What capture needs to know of a key-down, in macOS terms whatever the platform delivered it.
struct HotkeyKeyEvent {
    quint16 keyCode = MacKeyCode::none;
    HotkeyModifiers modifierFlags;
    // The characters the key types with modifiers ignored; absent when the platform gave none.
    std::optional<QString> charactersIgnoringModifiers;
};
