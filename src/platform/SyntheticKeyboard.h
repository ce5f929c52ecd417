#pragma once

#include <QtGlobal>

// Posts synthetic key presses to whatever application has the keyboard focus. The caller drives the
// sequence (press, wait, release), so the pause between the two events is the caller's clock's business.
class SyntheticKeyboard {
public:
    virtual ~SyntheticKeyboard() = default;

    // Presses the platform's primary shortcut modifier and then the key with this macOS virtual key code;
    // false when the events could not be posted. GUI thread; non-blocking.
    virtual bool pressShortcut(quint16 virtualKey) = 0;
    // Releases the key and the modifiers that the last pressShortcut pressed, in reverse order; false when
    // the events could not be posted. GUI thread; non-blocking.
    virtual bool releaseShortcut(quint16 virtualKey) = 0;
};
