#pragma once

// Xlib's own declaration, repeated so this header stays free of Xlib's macros.
typedef struct _XDisplay Display;

// Catches the X errors of one connection for as long as it lives, instead of letting the process-wide
// handler see them; the previous handler is back when the last trap goes. Traps nest: an error goes to the
// innermost live trap of its connection, and errors of connections without a trap go to the handler that
// was there before the first trap. Traps end in the reverse order of their start (a scope's order); any
// other order stops the program. GUI thread only.
class X11ErrorTrap {
public:
    explicit X11ErrorTrap(Display* display);
    ~X11ErrorTrap();
    X11ErrorTrap(const X11ErrorTrap&) = delete;
    X11ErrorTrap& operator=(const X11ErrorTrap&) = delete;

    // Waits until the server has answered every request sent so far; returns the error code of the first
    // that failed since the trap was set (BadAccess, BadValue...), or 0. Blocks for one round trip.
    int sync();

private:
    friend int handleTrappedError(Display* display, void* error);

    Display* m_display;
    X11ErrorTrap* m_outer;
    int m_firstError = 0;
};
