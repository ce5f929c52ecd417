#pragma once

#include "platform/InputSourceRef.h"

#include <QString>

// A usable keyboard input source: a layout or input mode with a name and an identifier.
struct KeyboardInputSource {
    InputSourceRef ref;
    QString id;
    QString name;
    bool hasKeyLayoutData = false;

    // A deliberately loose substring test on name and id: "Russian" contains "us" and "Romanian" contains
    // "roman", so both count as Latin here; only the exact-name lookup reaches them.
    bool isLatin() const;
};
