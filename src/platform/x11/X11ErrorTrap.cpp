#include "platform/x11/X11ErrorTrap.h"

#include <QtGlobal>
#include <X11/Xlib.h>

// Xlib's error handler while a trap lives; a friend of the trap, since the handler gets no user data.
int handleTrappedError(Display* display, void* error);

namespace {

// The innermost live trap; each links to the one it was set inside.
X11ErrorTrap* innermostTrap = nullptr;
XErrorHandler handlerBeforeTraps = nullptr;

int handleError(Display* display, XErrorEvent* error)
{
    return handleTrappedError(display, error);
}

} // namespace

int handleTrappedError(Display* display, void* error)
{
    auto* event = static_cast<XErrorEvent*>(error);
    for (X11ErrorTrap* trap = innermostTrap; trap != nullptr; trap = trap->m_outer) {
        if (trap->m_display == display) {
            if (trap->m_firstError == 0) {
                trap->m_firstError = event->error_code;
            }
            return 0;
        }
    }
    // The handler is process-wide: errors of connections without a trap go where they went before.
    return handlerBeforeTraps != nullptr ? handlerBeforeTraps(display, event) : 0;
}

X11ErrorTrap::X11ErrorTrap(Display* display) : m_display(display), m_outer(innermostTrap)
{
    // Errors of requests sent before the trap belong to whoever sent them (an outer trap, say).
    XSync(m_display, False);
    if (m_outer == nullptr) {
        handlerBeforeTraps = XSetErrorHandler(&handleError);
    }
    innermostTrap = this;
}

X11ErrorTrap::~X11ErrorTrap()
{
    XSync(m_display, False);
    if (innermostTrap != this) {
        qFatal("X11ErrorTrap: traps must end in the reverse order of their start");
    }
    innermostTrap = m_outer;
    if (innermostTrap == nullptr) {
        XSetErrorHandler(handlerBeforeTraps);
        handlerBeforeTraps = nullptr;
    }
}

int X11ErrorTrap::sync()
{
    XSync(m_display, False);
    return m_firstError;
}
