#pragma once

#include <QtGlobal>

// How the program shows on the desktop where the platform has more to say than its windows do: an
// application icon and menu that outlive the main window, and the main window's frame.
class ApplicationPresence {
public:
    virtual ~ApplicationPresence() = default;

    // Regular: the application's icon and main menu are shown; otherwise it is an accessory reached only
    // through its menu-bar item and panels. GUI thread; non-blocking.
    virtual void setRegular(bool regular) = 0;
    // Gives the main window the platform's own frame for it (on macOS a hidden title over a transparent
    // title bar, the content drawn beneath). Call before each show, once the window exists. GUI thread;
    // non-blocking.
    virtual void applyMainWindowTraits(quintptr nativeWindow) = 0;
};
