#include "X11PermissionProbe.h"

#include "X11DisplayConnection.h"

#include <X11/Xlib.h>

X11PermissionProbe::X11PermissionProbe(Display* display)
    : m_display(display), m_hasXTest(X11DisplayConnection::hasXTest(display))
{}
