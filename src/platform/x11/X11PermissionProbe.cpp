#include "X11PermissionProbe.h"

#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>

X11PermissionProbe::X11PermissionProbe(Display* display) : m_display(display)
{
    int eventBase = 0;
    int errorBase = 0;
    int major = 0;
    int minor = 0;
    m_hasXTest =
        m_display != nullptr && XTestQueryExtension(m_display, &eventBase, &errorBase, &major, &minor);
}
