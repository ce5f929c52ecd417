#include "platform/x11/X11GlobalInputMonitor.h"

#include "platform/x11/X11ErrorTrap.h"
#include "platform/x11/X11WindowProperty.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/extensions/XInput2.h>
#include <unistd.h>

X11GlobalInputMonitor::X11GlobalInputMonitor(X11EventPump& pump) : m_pump(pump)
{
    Display* display = m_pump.display();
    int event = 0;
    int error = 0;
    int major = 2;
    int minor = 0;
    if (!display || !XQueryExtension(display, "XInputExtension", &m_xiOpcode, &event, &error) ||
        XIQueryVersion(display, &major, &minor) != Success) {
        m_xiOpcode = -1;
        return;
    }
    m_subscription = m_pump.subscribe([this](const XEvent& e) { handle(e); });
}

X11GlobalInputMonitor::~X11GlobalInputMonitor()
{
    if (m_selected) {
        selectRawPresses(false);
    }
}

ListenerSubscription
X11GlobalInputMonitor::addMonitor(MonitoredInputEvent::Kinds kinds,
                                  std::function<void(const MonitoredInputEvent&)> handler)
{
    if (m_xiOpcode < 0) {
        return {};
    }
    if (!m_selected) {
        selectRawPresses(true);
    }
    return subscribeFiltered(m_monitors, kinds, std::move(handler));
}

void X11GlobalInputMonitor::selectRawPresses(bool on)
{
    m_selected = on;
    Display* display = m_pump.display();
    unsigned char mask[XIMaskLen(XI_LASTEVENT)] = {};
    if (on) {
        XISetMask(mask, XI_RawButtonPress);
    }
    XIEventMask eventMask{XIAllMasterDevices, int(sizeof(mask)), mask};
    XISelectEvents(display, DefaultRootWindow(display), &eventMask, 1);
    XFlush(display);
}

void X11GlobalInputMonitor::handle(const XEvent& event)
{
    if (event.type != GenericEvent || event.xcookie.extension != m_xiOpcode ||
        event.xcookie.evtype != XI_RawButtonPress) {
        return;
    }
    if (m_monitors.isEmpty()) {
        selectRawPresses(false);
        return;
    }
    // The cookie's data is fetched into a copy; Xlib releases unclaimed data at the next read.
    XEvent copy = event;
    Display* display = m_pump.display();
    if (!XGetEventData(display, &copy.xcookie)) {
        return;
    }
    const int button = static_cast<const XIRawEvent*>(copy.xcookie.data)->detail;
    XFreeEventData(display, &copy.xcookie);

    MonitoredInputEvent pressed;
    if (button == 1) {
        pressed.kind = MonitoredInputEvent::Kind::leftMouseDown;
    } else if (button == 3) {
        pressed.kind = MonitoredInputEvent::Kind::rightMouseDown;
    } else if (button == 2 || button > 7) {
        pressed.kind = MonitoredInputEvent::Kind::otherMouseDown;
    } else {
        // Buttons 4 to 7 are the wheel: scrolling is no click.
        return;
    }
    if (pointerOverOwnWindow()) {
        return;
    }
    m_monitors.notify(pressed);
}

bool X11GlobalInputMonitor::pointerOverOwnWindow() const
{
    Display* display = m_pump.display();
    const X11ErrorTrap trap(display);
    const Atom pidAtom = XInternAtom(display, "_NET_WM_PID", False);
    // From the top-level window under the pointer (a window manager's frame, or an override-redirect panel)
    // down to the client window that names its process.
    Window window = DefaultRootWindow(display);
    for (int depth = 0; depth < 4; ++depth) {
        Window root = 0;
        Window child = 0;
        int rootX = 0;
        int rootY = 0;
        int x = 0;
        int y = 0;
        unsigned mask = 0;
        if (!XQueryPointer(display, window, &root, &child, &rootX, &rootY, &x, &y, &mask) || child == 0) {
            return false;
        }
        window = child;
        const auto pid = X11WindowProperty::read(display, window, pidAtom, XA_CARDINAL, 0, 1);
        if (pid && pid->format == 32 && pid->count == 1) {
            return long(*reinterpret_cast<const unsigned long*>(pid->data.get())) == long(::getpid());
        }
    }
    return false;
}
