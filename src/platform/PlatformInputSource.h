#pragma once

#include "platform/InputSourceRef.h"

#include <QString>
#include <optional>

// One input source as the platform reports it. Any property may be missing; the caller decides what a usable
// source is.
struct PlatformInputSource {
    enum class Type { keyboardLayout, keyboardInputMode, other };

    InputSourceRef ref;
    std::optional<QString> name;
    std::optional<QString> id;
    std::optional<Type> type;
    // Whether the source carries key-layout data, so that its keys can be translated to characters.
    bool hasKeyLayoutData = false;
};
