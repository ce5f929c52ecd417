#pragma once

// Xlib's own declaration, repeated so this header stays free of Xlib's macros.
typedef struct _XDisplay Display;

// Catches the X errors of one connection for as long as it lives, instead of letting the process-wide
// handler see them; the previous handler is back when it goes. One trap at a time, on the GUI thread.
class X11ErrorTrap {
public:
    explicit X11ErrorTrap(Display* display);
    ~X11ErrorTrap();
    X11ErrorTrap(const X11ErrorTrap&) = delete;
    X11ErrorTrap& operator=(const X11ErrorTrap&) = delete;

    // Waits until the server has answered every request sent so far; returns the error code of the first
    // that failed since the trap was set (BadAccess, BadValue...), or 0.
    int sync();

private:
    Display* m_display;
};
