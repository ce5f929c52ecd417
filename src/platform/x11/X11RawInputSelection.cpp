#include "platform/x11/X11RawInputSelection.h"

#include <X11/Xlib.h>
#include <X11/extensions/XInput2.h>

X11RawInputSelection::X11RawInputSelection(Display* display) : m_display(display) {}

int X11RawInputSelection::opcode()
{
    if (!m_queried) {
        m_queried = true;
        int event = 0;
        int error = 0;
        // The server remembers the first version a client announces and refuses a lower one later, so the
        // connection announces it once, here.
        int major = 2;
        int minor = 2;
        if (!m_display || !XQueryExtension(m_display, "XInputExtension", &m_opcode, &event, &error) ||
            XIQueryVersion(m_display, &major, &minor) != Success || (major == 2 && minor < 1)) {
            m_opcode = -1;
        }
    }
    return m_opcode;
}

bool X11RawInputSelection::add(std::initializer_list<int> types)
{
    if (opcode() < 0) {
        return false;
    }
    for (const int type : types) {
        ++m_uses[type];
    }
    apply();
    return true;
}

void X11RawInputSelection::remove(std::initializer_list<int> types)
{
    if (opcode() < 0) {
        return;
    }
    for (const int type : types) {
        const auto use = m_uses.find(type);
        if (use != m_uses.end() && --use->second <= 0) {
            m_uses.erase(use);
        }
    }
    apply();
}

void X11RawInputSelection::apply()
{
    unsigned char bits[XIMaskLen(XI_LASTEVENT)] = {};
    for (const auto& [type, uses] : m_uses) {
        XISetMask(bits, type);
    }
    XIEventMask mask{XIAllMasterDevices, int(sizeof bits), bits};
    XISelectEvents(m_display, DefaultRootWindow(m_display), &mask, 1);
    XFlush(m_display);
}
