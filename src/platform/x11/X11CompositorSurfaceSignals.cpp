#include "platform/x11/X11CompositorSurfaceSignals.h"

#include <QByteArray>
#include <X11/Xlib.h>

X11CompositorSurfaceSignals::X11CompositorSurfaceSignals(Display* display) : m_display(display)
{
    if (m_display) {
        const QByteArray name = "_NET_WM_CM_S" + QByteArray::number(DefaultScreen(m_display));
        m_selection = XInternAtom(m_display, name.constData(), False);
    }
}

bool X11CompositorSurfaceSignals::reduceTransparency() const
{
    return !m_display || XGetSelectionOwner(m_display, m_selection) == None;
}
