#pragma once

#include "platform/FloatingWindowTraits.h"

// Gives a Qt window's NSWindow the traits of a floating panel: the floating level, present on every Space
// and beside full-screen apps, kept when the program is not active, no shadow, clear and not opaque (the
// view draws the sheet). A window that must not take the focus becomes a non-activating panel.
class MacFloatingWindowTraits : public FloatingWindowTraits {
public:
    // nativeWindow is what QWindow::winId() gives on macOS: the window's NSView.
    void applyFloatingTraits(quintptr nativeWindow) override;
    // The same surface one level higher (the status window level), always non-activating.
    void applyOverlayTraits(quintptr nativeWindow) override;
    // Activates this program ignoring the others and makes the window key: a global hotkey gives no
    // activation of its own.
    void activate(quintptr nativeWindow) override;
};
