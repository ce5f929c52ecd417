#pragma once

#include "platform/FloatingWindowTraits.h"

// Adds the EWMH hints of a floating panel to its unmapped window: _NET_WM_STATE sticky, skip-taskbar,
// skip-pager and above, and _NET_WM_DESKTOP set to every desktop. The window manager reads both when the
// window is mapped.
class X11FloatingWindowTraits : public FloatingWindowTraits {
public:
    // Does nothing unless the application runs on Qt's X11 platform plugin.
    void applyFloatingTraits(quintptr nativeWindow) override;
    // The overlay bypasses the window manager (override-redirect): it is stacked, shown on every desktop and
    // kept out of the taskbar without a hint.
    void applyOverlayTraits(quintptr /*nativeWindow*/) override {}
    // Sends _NET_ACTIVE_WINDOW as a pager would: window managers that prevent focus stealing judge an
    // application's request by its last input time, which a global hotkey never updates.
    void activate(quintptr nativeWindow) override;
};
