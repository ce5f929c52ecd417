#pragma once

#include <QString>
#include <optional>

// Outcome of a layout fix. targetLayoutName names the layout the text is now written for, in a form that
// the loose source lookup accepts.
struct KeyboardLayoutFixResult {
    QString text;
    bool convertedToLatin = false;
    std::optional<QString> targetLayoutName;

    bool operator==(const KeyboardLayoutFixResult&) const = default;
};
