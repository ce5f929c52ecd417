#pragma once

#include "hotkeys/HotkeyModifier.h"

#include <QHash>
#include <QString>
#include <optional>

// A stored hotkey text such as "Control+Alt+Shift+Left" read into a key code and four modifier flags.
struct ParsedHotkey {
    bool option = false;
    bool command = false;
    bool shift = false;
    bool control = false;
    quint16 keyCode = 0;

    bool operator==(const ParsedHotkey&) const = default;

    // Absent when the text is not a hotkey. Accepts aliases, modifier symbols and any letter case.
    // "Not assigned" is not a hotkey either: test isNotAssigned first.
    static std::optional<ParsedHotkey> parse(const QString& text);
    // The stored text of a hotkey that is not set.
    static QString notAssigned();
    // True for "Not assigned" in any letter case.
    static bool isNotAssigned(const QString& text);
    // Upper-case key name to macOS virtual key code, aliases included.
    static const QHash<QString, quint16>& keyCodes();

    // "<keyCode>:<option>:<command>:<shift>:<control>" with the flags as 0 or 1; equal for every spelling
    // of the same chord, so it is what conflicts are found by.
    QString canonicalSignature() const;
    HotkeyModifiers modifiers() const;
};
