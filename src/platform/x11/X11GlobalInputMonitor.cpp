#include "platform/x11/X11GlobalInputMonitor.h"

#include "platform/x11/X11ErrorTrap.h"
#include "platform/x11/X11WindowProperty.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/extensions/XInput2.h>
#include <optional>
#include <unistd.h>

X11GlobalInputMonitor::X11GlobalInputMonitor(X11EventPump& pump) : m_pump(pump)
{
    m_xiOpcode = m_pump.rawInput().opcode();
    if (m_xiOpcode >= 0) {
        m_subscription = m_pump.subscribe([this](const XEvent& e) { handle(e); });
    }
}

X11GlobalInputMonitor::~X11GlobalInputMonitor()
{
    if (m_selected) {
        selectRawEvents(false);
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
        selectRawEvents(true);
    }
    return subscribeFiltered(m_monitors, kinds, std::move(handler));
}

void X11GlobalInputMonitor::selectRawEvents(bool on)
{
    // Other adapters on this connection follow raw events too (the hotkeys' key releases); only this
    // monitor's own share of the selection comes and goes.
    m_selected = on;
    if (on) {
        m_pump.rawInput().add({XI_RawButtonPress, XI_RawButtonRelease, XI_RawKeyRelease});
    } else {
        m_pump.rawInput().remove({XI_RawButtonPress, XI_RawButtonRelease, XI_RawKeyRelease});
    }
}

void X11GlobalInputMonitor::handle(const XEvent& event)
{
    if (event.type != GenericEvent || event.xcookie.extension != m_xiOpcode ||
        (event.xcookie.evtype != XI_RawButtonPress && event.xcookie.evtype != XI_RawButtonRelease &&
         event.xcookie.evtype != XI_RawKeyRelease)) {
        return;
    }
    if (m_monitors.isEmpty()) {
        if (m_selected) {
            selectRawEvents(false);
        }
        return;
    }
    MonitoredInputEvent seen;
    if (event.xcookie.evtype == XI_RawKeyRelease) {
        seen.kind = MonitoredInputEvent::Kind::keyUp;
        if (focusInOwnWindow()) {
            return;
        }
    } else {
        // The cookie's data is fetched into a copy; Xlib releases unclaimed data at the next read.
        XEvent copy = event;
        Display* display = m_pump.display();
        if (!XGetEventData(display, &copy.xcookie)) {
            return;
        }
        const int button = static_cast<const XIRawEvent*>(copy.xcookie.data)->detail;
        XFreeEventData(display, &copy.xcookie);
        const bool pressed = event.xcookie.evtype == XI_RawButtonPress;
        // Only the left button's release ends a gesture anyone watches, and buttons 4 to 7 are the wheel:
        // scrolling is no click.
        const bool wheel = button >= 4 && button <= 7;
        if ((!pressed && button != 1) || wheel) {
            return;
        }
        if (button == 1) {
            seen.kind =
                pressed ? MonitoredInputEvent::Kind::leftMouseDown : MonitoredInputEvent::Kind::leftMouseUp;
        } else if (button == 3) {
            seen.kind = MonitoredInputEvent::Kind::rightMouseDown;
        } else {
            seen.kind = MonitoredInputEvent::Kind::otherMouseDown;
        }
        if (pointerOverOwnWindow()) {
            return;
        }
    }
    readPointer(seen);
    m_monitors.notify(seen);
}

namespace {

// Where the pointer is, which child of window it is over (0 for none) and the modifiers held.
struct PointerState {
    Window child = 0;
    QPoint position;
    unsigned modifiers = 0;
};

std::optional<PointerState> queryPointer(Display* display, Window window)
{
    Window root = 0;
    PointerState state;
    int rootX = 0;
    int rootY = 0;
    int x = 0;
    int y = 0;
    if (!XQueryPointer(display, window, &root, &state.child, &rootX, &rootY, &x, &y, &state.modifiers)) {
        return std::nullopt;
    }
    state.position = QPoint(rootX, rootY);
    return state;
}

} // namespace

void X11GlobalInputMonitor::readPointer(MonitoredInputEvent& event) const
{
    Display* display = m_pump.display();
    if (const std::optional<PointerState> state = queryPointer(display, DefaultRootWindow(display))) {
        event.pointer = state->position;
        event.optionHeld = (state->modifiers & Mod1Mask) != 0;
    }
}

bool X11GlobalInputMonitor::pointerOverOwnWindow() const
{
    Display* display = m_pump.display();
    const X11ErrorTrap trap(display);
    // From the top-level window under the pointer (a window manager's frame, or an override-redirect panel)
    // down to the client window that names its process.
    Window window = DefaultRootWindow(display);
    for (int depth = 0; depth < 4; ++depth) {
        const std::optional<PointerState> state = queryPointer(display, window);
        if (!state || state->child == 0) {
            return false;
        }
        window = state->child;
        if (isOwnWindow(window)) {
            return true;
        }
    }
    return false;
}

bool X11GlobalInputMonitor::focusInOwnWindow() const
{
    Display* display = m_pump.display();
    const X11ErrorTrap trap(display);
    Window focus = 0;
    int revert = 0;
    XGetInputFocus(display, &focus, &revert);
    // The focus may sit on a child of the client window (Qt focuses a proxy child): walk up to the client.
    for (int depth = 0; depth < 4 && focus != 0 && focus != PointerRoot; ++depth) {
        if (isOwnWindow(focus)) {
            return true;
        }
        Window root = 0;
        Window parent = 0;
        Window* children = nullptr;
        unsigned count = 0;
        const Status queried = XQueryTree(display, focus, &root, &parent, &children, &count);
        const XPtr<Window> releaseChildren(children);
        if (!queried) {
            return false;
        }
        if (parent == root) {
            return false;
        }
        focus = parent;
    }
    return false;
}

bool X11GlobalInputMonitor::isOwnWindow(unsigned long window) const
{
    Display* display = m_pump.display();
    const Atom pidAtom = XInternAtom(display, "_NET_WM_PID", False);
    const auto pid = X11WindowProperty::read(display, window, pidAtom, XA_CARDINAL, 0, 1);
    return pid && pid->format == 32 && pid->count == 1 &&
           long(*reinterpret_cast<const unsigned long*>(pid->data.get())) == long(::getpid());
}
