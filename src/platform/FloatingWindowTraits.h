#pragma once

#include <QtGlobal>

// What a window manager must know about a floating panel that Qt's window flags cannot say.
class FloatingWindowTraits {
public:
    virtual ~FloatingWindowTraits() = default;

    // Marks the native window as shown on every desktop and left out of taskbars and pagers. Call after the
    // window exists and before it is first mapped; a window the platform does not know is left alone. GUI
    // thread; non-blocking.
    virtual void applyFloatingTraits(quintptr nativeWindow) = 0;
};
