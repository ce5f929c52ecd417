#include "platform/x11/X11SystemBell.h"

#include <X11/Xlib.h>

void X11SystemBell::ring()
{
    if (m_display != nullptr) {
        XBell(m_display, 0);
        XFlush(m_display);
    }
}
