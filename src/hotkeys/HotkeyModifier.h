#pragma once

#include <QFlags>

// Modifier bits of a chord. They are the bits of a macOS key event's modifier flags, so stored hotkeys,
// captured key events and every platform's registrar share one vocabulary.
enum class HotkeyModifier : quint32 {
    Shift = 0x20000,
    Control = 0x40000,
    Option = 0x80000,
    Command = 0x100000,
};
Q_DECLARE_FLAGS(HotkeyModifiers, HotkeyModifier)
Q_DECLARE_OPERATORS_FOR_FLAGS(HotkeyModifiers)
