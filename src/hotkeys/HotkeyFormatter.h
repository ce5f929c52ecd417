#pragma once

#include "hotkeys/HotkeyKeyEvent.h"

#include <QHash>
#include <QString>
#include <optional>

// Turns stored hotkey texts into the symbol form the user sees, and key events into stored texts.
class HotkeyFormatter {
public:
    // The short symbol form, "⌃ ⌥ ⇧ ←" for "Control+Alt+Shift+Left". Never fails: pieces it does not know
    // are shown as they stand.
    static QString display(const QString& hotkey);
    // The canonical text of a key-down, absent when the key has no name or no modifier is held.
    static std::optional<QString> capture(const HotkeyKeyEvent& event);
    // The canonical key name of an event, absent when capture cannot name the key.
    static std::optional<QString> keyName(const HotkeyKeyEvent& event);
    // Key code to canonical key name. Narrower than the parser's table: no Tab, no Escape, no aliases.
    static const QHash<quint16, QString>& keyCodeNames();
};
