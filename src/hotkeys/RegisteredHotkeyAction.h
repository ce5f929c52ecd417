#pragma once

#include <QString>

// What a registered hotkey stands for; the payload is a style, reply style or tiling id where the kind has
// one.
struct RegisteredHotkeyAction {
    enum class Kind {
        style,
        reply,
        windowTiling,
        quickMenu,
        assistant,
        clipboard,
        layout,
        translationPreview
    };

    Kind kind = Kind::layout;
    QString payload;

    bool operator==(const RegisteredHotkeyAction&) const = default;
};
