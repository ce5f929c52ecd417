#pragma once

#include <QtGlobal>

// What a window manager must know about a floating panel that Qt's window flags cannot say.
class FloatingWindowTraits {
public:
    virtual ~FloatingWindowTraits() = default;

    // Marks the native window as shown on every desktop and left out of taskbars and pagers. Call after the
    // window exists, before each map and once more when it is first shown on screen; a window the platform
    // does not know is left alone. GUI thread; non-blocking.
    virtual void applyFloatingTraits(quintptr nativeWindow) = 0;
    // The same for a status overlay: above the floating panels, on every desktop, never focused. Where the
    // window manager leaves such a window alone already, nothing to do. GUI thread; non-blocking.
    virtual void applyOverlayTraits(quintptr nativeWindow) = 0;
    // Asks for the keyboard focus for a shown window on the user's behalf: a panel opened by a global hotkey
    // answers a user's action even though none of this program's windows saw it. GUI thread; non-blocking.
    virtual void activate(quintptr nativeWindow) = 0;
};
