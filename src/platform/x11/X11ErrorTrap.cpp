#include "platform/x11/X11ErrorTrap.h"

#include <X11/Xlib.h>

namespace {

// Xlib's handler gets no user data, so the live trap's state sits here.
struct TrapState {
    Display* display = nullptr;
    XErrorHandler previous = nullptr;
    int firstError = 0;
};
TrapState trapState;

int handleError(Display* display, XErrorEvent* error)
{
    // The handler is process-wide: errors of other connections go where they went before.
    if (display != trapState.display) {
        return trapState.previous != nullptr ? trapState.previous(display, error) : 0;
    }
    if (trapState.firstError == 0) {
        trapState.firstError = error->error_code;
    }
    return 0;
}

} // namespace

X11ErrorTrap::X11ErrorTrap(Display* display) : m_display(display)
{
    // Errors of requests sent before the trap belong to whoever sent them.
    XSync(m_display, False);
    trapState = {m_display, XSetErrorHandler(&handleError), 0};
}

X11ErrorTrap::~X11ErrorTrap()
{
    XSync(m_display, False);
    XSetErrorHandler(trapState.previous);
    trapState = {};
}

int X11ErrorTrap::sync()
{
    XSync(m_display, False);
    return trapState.firstError;
}
