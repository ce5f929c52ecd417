#include "X11DesktopWindows.h"

#include "X11ErrorTrap.h"
#include "X11WindowProperty.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/Xrandr.h>

using namespace std::chrono_literals;

namespace {
// _NET_MOVERESIZE_WINDOW: north-west gravity (x and y place the outer frame's top left), the fields given,
// and a pager as the source, which window managers obey without second-guessing the application.
constexpr long northWestGravity = 1;
constexpr long moveFlags = (1L << 8) | (1L << 9);
constexpr long sizeFlags = (1L << 10) | (1L << 11);
constexpr long pagerSource = 2L << 12;
constexpr long removeState = 0;
// How long the window manager may take to answer a move at all, and how long a window that has changed
// must stay still to count as settled.
constexpr auto firstAnswerGuard = 1000ms;
constexpr auto quietPeriod = 100ms;
// Every window that is on all desktops says so with this desktop number.
constexpr unsigned long allDesktops = 0xFFFFFFFF;
// Layers of the on-screen list, as the interface orders them.
constexpr int aboveLayer = 3;
constexpr int dockLayer = 20;
constexpr int belowLayer = -1;
} // namespace

X11DesktopWindows::X11DesktopWindows(X11EventPump& pump) : m_pump(pump), m_display(pump.display())
{
    if (m_display != nullptr) {
        m_root = DefaultRootWindow(m_display);
    }
}

unsigned long X11DesktopWindows::atom(const char* name)
{
    const auto known = m_atoms.constFind(QByteArray(name));
    if (known != m_atoms.cend()) {
        return *known;
    }
    const Atom made = XInternAtom(m_display, name, False);
    m_atoms.insert(QByteArray(name), made);
    return made;
}

QList<unsigned long> X11DesktopWindows::cardinals(unsigned long window, const char* property,
                                                  unsigned long type)
{
    return X11WindowProperty::readLongs(m_display, window, atom(property), type);
}

QList<unsigned long> X11DesktopWindows::clients(const char* listProperty)
{
    return m_display == nullptr ? QList<unsigned long>() : cardinals(m_root, listProperty, XA_WINDOW);
}

X11DesktopWindows::Margins X11DesktopWindows::margins(unsigned long window, const char* property)
{
    const QList<unsigned long> values = cardinals(window, property, XA_CARDINAL);
    if (values.size() < 4) {
        return {};
    }
    return {long(values[0]), long(values[1]), long(values[2]), long(values[3])};
}

QSet<unsigned long> X11DesktopWindows::wmState(unsigned long window)
{
    const QList<unsigned long> states = cardinals(window, "_NET_WM_STATE", XA_ATOM);
    return QSet<unsigned long>(states.cbegin(), states.cend());
}

DesktopWindows::WindowId X11DesktopWindows::focusedWindow()
{
    const QList<unsigned long> active = clients("_NET_ACTIVE_WINDOW");
    return active.isEmpty() ? 0 : WindowId(active.first());
}

std::optional<DesktopWindows::WindowState> X11DesktopWindows::state(WindowId window)
{
    if (m_display == nullptr || window == 0) {
        return std::nullopt;
    }
    X11ErrorTrap trap(m_display);
    XWindowAttributes attributes{};
    if (XGetWindowAttributes(m_display, Window(window), &attributes) == 0) {
        trap.sync();
        return std::nullopt;
    }
    const QList<unsigned long> types = cardinals(window, "_NET_WM_WINDOW_TYPE", XA_ATOM);
    Window transientFor = 0;
    const bool transient = XGetTransientForHint(m_display, Window(window), &transientFor) != 0;
    const QSet<unsigned long> states = wmState(window);
    if (trap.sync() != 0) {
        return std::nullopt;
    }
    WindowState result;
    // Without a type, a window is normal unless it is transient for another, which makes it a dialog.
    result.isStandard = types.isEmpty() ? !transient : types.first() == atom("_NET_WM_WINDOW_TYPE_NORMAL");
    result.isMinimized = states.contains(atom("_NET_WM_STATE_HIDDEN")) || attributes.map_state == IsUnmapped;
    result.isFullScreen = states.contains(atom("_NET_WM_STATE_FULLSCREEN"));
    return result;
}

std::optional<QRect> X11DesktopWindows::frame(WindowId window)
{
    if (m_display == nullptr || window == 0) {
        return std::nullopt;
    }
    X11ErrorTrap trap(m_display);
    Window root = 0;
    int x = 0;
    int y = 0;
    unsigned int width = 0;
    unsigned int height = 0;
    unsigned int border = 0;
    unsigned int depth = 0;
    Window child = 0;
    if (XGetGeometry(m_display, Window(window), &root, &x, &y, &width, &height, &border, &depth) == 0 ||
        XTranslateCoordinates(m_display, Window(window), m_root, 0, 0, &x, &y, &child) == 0) {
        trap.sync();
        return std::nullopt;
    }
    const Margins decoration = margins(window, "_NET_FRAME_EXTENTS");
    const Margins shadow = margins(window, "_GTK_FRAME_EXTENTS");
    if (trap.sync() != 0) {
        return std::nullopt;
    }
    return QRect(int(x - decoration.left + shadow.left), int(y - decoration.top + shadow.top),
                 int(long(width) + decoration.left + decoration.right - shadow.left - shadow.right),
                 int(long(height) + decoration.top + decoration.bottom - shadow.top - shadow.bottom));
}

QRect X11DesktopWindows::visibleArea(const QRect& monitor, const QList<unsigned long>& clientWindows,
                                     QSize rootSize)
{
    // The struts of docks and panels, each reserving a band along one edge of the whole root window over a
    // stretch of that edge; a band takes off the monitor what it covers of it.
    int left = monitor.x();
    int top = monitor.y();
    int right = monitor.x() + monitor.width();
    int bottom = monitor.y() + monitor.height();
    bool anyStrut = false;
    for (const unsigned long window : clientWindows) {
        QList<unsigned long> strut = cardinals(window, "_NET_WM_STRUT_PARTIAL", XA_CARDINAL);
        if (strut.size() < 12) {
            const QList<unsigned long> plain = cardinals(window, "_NET_WM_STRUT", XA_CARDINAL);
            if (plain.size() < 4) {
                continue;
            }
            strut = plain;
            strut << 0 << ulong(rootSize.height() - 1) << 0 << ulong(rootSize.height() - 1) << 0
                  << ulong(rootSize.width() - 1) << 0 << ulong(rootSize.width() - 1);
        }
        anyStrut = true;
        const auto overlaps = [](long start, long end, int from, int to) {
            return start < to && end >= from;
        };
        const int monitorRight = monitor.x() + monitor.width();
        const int monitorBottom = monitor.y() + monitor.height();
        if (strut[0] > 0 && overlaps(long(strut[4]), long(strut[5]), monitor.y(), monitorBottom) &&
            long(strut[0]) > monitor.x()) {
            left = std::max(left, int(strut[0]));
        }
        if (strut[1] > 0 && overlaps(long(strut[6]), long(strut[7]), monitor.y(), monitorBottom) &&
            rootSize.width() - long(strut[1]) < monitorRight) {
            right = std::min(right, int(rootSize.width() - long(strut[1])));
        }
        if (strut[2] > 0 && overlaps(long(strut[8]), long(strut[9]), monitor.x(), monitorRight) &&
            long(strut[2]) > monitor.y()) {
            top = std::max(top, int(strut[2]));
        }
        if (strut[3] > 0 && overlaps(long(strut[10]), long(strut[11]), monitor.x(), monitorRight) &&
            rootSize.height() - long(strut[3]) < monitorBottom) {
            bottom = std::min(bottom, int(rootSize.height() - long(strut[3])));
        }
    }
    if (!anyStrut) {
        // Where no window says what it reserves, the window manager's work area is all there is.
        const QList<unsigned long> desktop = cardinals(m_root, "_NET_CURRENT_DESKTOP", XA_CARDINAL);
        const QList<unsigned long> areas = cardinals(m_root, "_NET_WORKAREA", XA_CARDINAL);
        const qsizetype index = 4 * (desktop.isEmpty() ? 0 : qsizetype(desktop.first()));
        if (areas.size() >= index + 4) {
            const QRect work{int(areas[index]), int(areas[index + 1]), int(areas[index + 2]),
                             int(areas[index + 3])};
            const QRect visible = monitor.intersected(work);
            return visible.isEmpty() ? monitor : visible;
        }
    }
    const QRect visible(left, top, right - left, bottom - top);
    return visible.isEmpty() ? monitor : visible;
}

QList<DesktopWindows::Screen> X11DesktopWindows::screens()
{
    QList<Screen> result;
    if (m_display == nullptr) {
        return result;
    }
    const QSize rootSize(DisplayWidth(m_display, DefaultScreen(m_display)),
                         DisplayHeight(m_display, DefaultScreen(m_display)));
    QList<QRect> monitors;
    int count = 0;
    int eventBase = 0;
    int errorBase = 0;
    if (XRRQueryExtension(m_display, &eventBase, &errorBase) != 0) {
        if (XRRMonitorInfo* info = XRRGetMonitors(m_display, m_root, True, &count)) {
            for (int index = 0; index < count; ++index) {
                const QRect monitor(info[index].x, info[index].y, info[index].width, info[index].height);
                if (info[index].primary != 0) {
                    monitors.prepend(monitor);
                } else {
                    monitors.append(monitor);
                }
            }
            XRRFreeMonitors(info);
        }
    }
    if (monitors.isEmpty()) {
        monitors.append(QRect(QPoint(0, 0), rootSize));
    }
    X11ErrorTrap trap(m_display);
    const QList<unsigned long> clientWindows = clients("_NET_CLIENT_LIST");
    for (const QRect& monitor : monitors) {
        result.append({monitor, visibleArea(monitor, clientWindows, rootSize)});
    }
    trap.sync();
    return result;
}

QList<DesktopWindows::StackedWindow> X11DesktopWindows::windowsFrontToBack()
{
    QList<StackedWindow> result;
    // The list runs bottom to top.
    const QList<unsigned long> stacking = clients("_NET_CLIENT_LIST_STACKING");
    if (stacking.isEmpty()) {
        return result;
    }
    const QList<unsigned long> frontFirst(stacking.crbegin(), stacking.crend());
    const QList<unsigned long> current = cardinals(m_root, "_NET_CURRENT_DESKTOP", XA_CARDINAL);
    for (const Window window : frontFirst) {
        X11ErrorTrap trap(m_display);
        XWindowAttributes attributes{};
        if (XGetWindowAttributes(m_display, window, &attributes) == 0 || attributes.map_state != IsViewable) {
            trap.sync();
            continue;
        }
        const QList<unsigned long> desktop = cardinals(window, "_NET_WM_DESKTOP", XA_CARDINAL);
        const QList<unsigned long> types = cardinals(window, "_NET_WM_WINDOW_TYPE", XA_ATOM);
        const QSet<unsigned long> states = wmState(window);
        const QList<unsigned long> pid = cardinals(window, "_NET_WM_PID", XA_CARDINAL);
        const QList<unsigned long> opacity = cardinals(window, "_NET_WM_WINDOW_OPACITY", XA_CARDINAL);
        const std::optional<QRect> bounds = frame(window);
        if (trap.sync() != 0 || !bounds) {
            continue;
        }
        // On screen only: neither on another desktop nor hidden, and not the desktop itself.
        const bool otherDesktop = !desktop.isEmpty() && !current.isEmpty() &&
                                  desktop.first() != allDesktops && desktop.first() != current.first();
        const unsigned long type = types.isEmpty() ? 0 : types.first();
        if (otherDesktop || states.contains(atom("_NET_WM_STATE_HIDDEN")) ||
            type == atom("_NET_WM_WINDOW_TYPE_DESKTOP")) {
            continue;
        }
        StackedWindow entry;
        entry.window = window;
        if (!pid.isEmpty()) {
            entry.ownerProcess = qint32(pid.first());
        }
        if (type == atom("_NET_WM_WINDOW_TYPE_DOCK") || type == atom("_NET_WM_WINDOW_TYPE_NOTIFICATION")) {
            entry.layer = dockLayer;
        } else if (states.contains(atom("_NET_WM_STATE_ABOVE"))) {
            entry.layer = aboveLayer;
        } else if (states.contains(atom("_NET_WM_STATE_BELOW"))) {
            entry.layer = belowLayer;
        }
        if (!opacity.isEmpty()) {
            entry.alpha = double(opacity.first()) / double(0xFFFFFFFFUL);
        }
        entry.bounds = *bounds;
        result.append(entry);
    }
    return result;
}

QList<DesktopWindows::WindowId> X11DesktopWindows::windowsOfProcess(qint32 processIdentifier)
{
    QList<WindowId> result;
    for (const unsigned long window : clients("_NET_CLIENT_LIST")) {
        X11ErrorTrap trap(m_display);
        const QList<unsigned long> pid = cardinals(window, "_NET_WM_PID", XA_CARDINAL);
        if (trap.sync() == 0 && !pid.isEmpty() && qint32(pid.first()) == processIdentifier) {
            result.append(window);
        }
    }
    return result;
}

void X11DesktopWindows::prepareMove(unsigned long window)
{
    if (!m_watched.contains(window)) {
        // Our own mask on another client's window: its configure notices tell when the window manager has
        // answered. Added to, never replaced, as the connection is shared.
        XWindowAttributes attributes{};
        if (XGetWindowAttributes(m_display, Window(window), &attributes) != 0) {
            XSelectInput(m_display, Window(window), attributes.your_event_mask | StructureNotifyMask);
            m_watched.insert(window);
        }
    }
    // A maximised window ignores moves and sizes in most window managers.
    const QSet<unsigned long> states = wmState(window);
    const unsigned long vertical = atom("_NET_WM_STATE_MAXIMIZED_VERT");
    const unsigned long horizontal = atom("_NET_WM_STATE_MAXIMIZED_HORZ");
    if (states.contains(vertical) || states.contains(horizontal)) {
        XEvent event{};
        event.xclient.type = ClientMessage;
        event.xclient.window = Window(window);
        event.xclient.message_type = atom("_NET_WM_STATE");
        event.xclient.format = 32;
        event.xclient.data.l[0] = removeState;
        event.xclient.data.l[1] = long(vertical);
        event.xclient.data.l[2] = long(horizontal);
        event.xclient.data.l[3] = 2;
        XSendEvent(m_display, m_root, False, SubstructureRedirectMask | SubstructureNotifyMask, &event);
    }
}

void X11DesktopWindows::moveResize(unsigned long window, long flags, long x, long y, long width, long height)
{
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = Window(window);
    event.xclient.message_type = atom("_NET_MOVERESIZE_WINDOW");
    event.xclient.format = 32;
    event.xclient.data.l[0] = northWestGravity | flags | pagerSource;
    event.xclient.data.l[1] = x;
    event.xclient.data.l[2] = y;
    event.xclient.data.l[3] = width;
    event.xclient.data.l[4] = height;
    XSendEvent(m_display, m_root, False, SubstructureRedirectMask | SubstructureNotifyMask, &event);
}

void X11DesktopWindows::setPosition(WindowId window, QPoint topLeft)
{
    if (m_display == nullptr || window == 0) {
        return;
    }
    X11ErrorTrap trap(m_display);
    prepareMove(window);
    // The window manager places its own frame; only invisible margins drawn by the client are ours to add.
    const Margins shadow = margins(window, "_GTK_FRAME_EXTENTS");
    moveResize(window, moveFlags, topLeft.x() - shadow.left, topLeft.y() - shadow.top, 0, 0);
    trap.sync();
}

void X11DesktopWindows::setSize(WindowId window, QSize size)
{
    if (m_display == nullptr || window == 0) {
        return;
    }
    X11ErrorTrap trap(m_display);
    prepareMove(window);
    // The request sizes the client window: the frame's decorations come off, the client's margins go on.
    const Margins decoration = margins(window, "_NET_FRAME_EXTENTS");
    const Margins shadow = margins(window, "_GTK_FRAME_EXTENTS");
    const long width = size.width() - decoration.left - decoration.right + shadow.left + shadow.right;
    const long height = size.height() - decoration.top - decoration.bottom + shadow.top + shadow.bottom;
    moveResize(window, sizeFlags, 0, 0, std::max(1L, width), std::max(1L, height));
    trap.sync();
}

QCoro::Task<std::optional<QRect>> X11DesktopWindows::settledFrame(WindowId window, QRect expected)
{
    if (m_display == nullptr || window == 0) {
        co_return std::nullopt;
    }
    XFlush(m_display);
    const auto isNotice = [window](const XEvent& event) {
        return event.type == ConfigureNotify && event.xconfigure.window == Window(window);
    };
    std::optional<QRect> current = frame(window);
    bool answered = false;
    // The window manager answers each move with a configure notice, several for the three moves of one
    // placement; a window that refuses a size answers with another frame, so the answer is over when the
    // notices stop.
    while (current && *current != expected) {
        if (!co_await m_pump.waitFor(isNotice, answered ? quietPeriod : firstAnswerGuard)) {
            break;
        }
        answered = true;
        current = frame(window);
    }
    co_return current;
}
