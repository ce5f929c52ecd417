#include "X11DisplayConnection.h"

#include <X11/Xlib.h>

void X11DisplayConnection::Closer::operator()(Display* display) const
{
    XCloseDisplay(display);
}

X11DisplayConnection::X11DisplayConnection(const QByteArray& name)
    : m_display(XOpenDisplay(name.isEmpty() ? nullptr : name.constData()))
{}
