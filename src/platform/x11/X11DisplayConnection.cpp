#include "X11DisplayConnection.h"

#include <X11/Xlib.h>
#include <X11/extensions/XInput2.h>
#include <X11/extensions/XTest.h>

void X11DisplayConnection::Closer::operator()(Display* display) const
{
    XCloseDisplay(display);
}

X11DisplayConnection::X11DisplayConnection(const QByteArray& name)
    : m_display(XOpenDisplay(name.isEmpty() ? nullptr : name.constData()))
{}

bool X11DisplayConnection::hasXTest(Display* display)
{
    int eventBase = 0;
    int errorBase = 0;
    int major = 0;
    int minor = 0;
    return display != nullptr && XTestQueryExtension(display, &eventBase, &errorBase, &major, &minor);
}

bool X11DisplayConnection::hasXInput2(Display* display)
{
    int opcode = 0;
    int event = 0;
    int error = 0;
    // WORKAROUND: a client keeps the first XInput version it names, and the hotkey registrar needs 2.2 (raw
    // key releases) on this same connection; asking for less here would take that from it.
    int major = 2;
    int minor = 2;
    return display != nullptr && XQueryExtension(display, "XInputExtension", &opcode, &event, &error) &&
           XIQueryVersion(display, &major, &minor) == Success && major >= 2;
}
