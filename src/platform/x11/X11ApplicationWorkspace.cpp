#include "X11ApplicationWorkspace.h"

#include "X11ErrorTrap.h"
#include "X11WindowProperty.h"

#include <X11/Xatom.h>
#include <X11/Xutil.h>
#include <unistd.h>

namespace {
using XData = XPtr<unsigned char>;

// The items of a 32-bit property (windows, cardinals), empty when it is missing or of another format.
QList<unsigned long> longProperty(Display* display, Window window, Atom property, Atom type)
{
    return X11WindowProperty::readLongs(display, window, property, type);
}

QString textProperty(Display* display, Window window, Atom property, Atom type)
{
    const auto read = X11WindowProperty::read(display, window, property, type, 0, 1024);
    if (!read || !read->data || read->format != 8) {
        return {};
    }
    return QString::fromUtf8(reinterpret_cast<const char*>(read->data.get()), qsizetype(read->count));
}
} // namespace

X11ApplicationWorkspace::X11ApplicationWorkspace(X11EventPump& pump) : m_display(pump.display())
{
    if (m_display == nullptr) {
        return;
    }
    m_root = DefaultRootWindow(m_display);
    m_activeWindowAtom = XInternAtom(m_display, "_NET_ACTIVE_WINDOW", False);
    // The connection is shared, and so is its event mask on the root window: add to it, never replace it.
    XWindowAttributes attributes{};
    XGetWindowAttributes(m_display, m_root, &attributes);
    XSelectInput(m_display, m_root, attributes.your_event_mask | PropertyChangeMask);
    XFlush(m_display);
    m_lastActive = activeWindow();
    if (const std::optional<ClientWindow> client = describe(m_lastActive, m_lastActive)) {
        m_lastActiveProcess = client->application.processIdentifier;
        m_frontProcess = m_lastActiveProcess;
        noteActive(*client);
    }
    m_events = pump.subscribe([this](const XEvent& event) {
        if (event.type == PropertyNotify && event.xproperty.window == m_root &&
            event.xproperty.atom == m_activeWindowAtom) {
            activeWindowChanged();
        }
    });
}

void X11ApplicationWorkspace::activeWindowChanged()
{
    const Window active = activeWindow();
    const std::optional<ClientWindow> client = active == 0 ? std::nullopt : describe(active, active);
    // A window id of a process that ended may come back for a new one, so the process counts too. Focus on
    // no window is a change as well, so the same window coming back afterwards is reported.
    const qint32 process = client ? client->application.processIdentifier : 0;
    if (active == m_lastActive && process == m_lastActiveProcess) {
        return;
    }
    m_lastActive = active;
    m_lastActiveProcess = process;
    if (!client) {
        return;
    }
    noteActive(*client);
    m_windowActivations.notify(client->application);
    // Window managers pass through focus on no window while one window of an application closes and
    // another of it takes over: that is no new application in front.
    if (process != m_frontProcess) {
        m_frontProcess = process;
        m_activations.notify(client->application);
    }
}

void X11ApplicationWorkspace::noteActive(const ClientWindow& client)
{
    QList<unsigned long>& windows = m_recentWindows[client.application.processIdentifier];
    windows.removeAll(client.window);
    windows.prepend(client.window);
}

ApplicationWorkspace::WindowIdentifier X11ApplicationWorkspace::lastActiveWindow(qint32 processIdentifier)
{
    const QList<unsigned long> windows = m_recentWindows.value(processIdentifier);
    return windows.isEmpty() ? 0 : WindowIdentifier(windows.first());
}

unsigned long X11ApplicationWorkspace::activeWindow()
{
    if (m_display == nullptr) {
        return 0;
    }
    const QList<unsigned long> active = longProperty(m_display, m_root, m_activeWindowAtom, XA_WINDOW);
    return active.isEmpty() ? 0 : Window(active.first());
}

std::optional<X11ApplicationWorkspace::ClientWindow> X11ApplicationWorkspace::describe(unsigned long window,
                                                                                       unsigned long active)
{
    Display* display = m_display;
    X11ErrorTrap trap(display);
    const QList<unsigned long> pid =
        longProperty(display, window, XInternAtom(display, "_NET_WM_PID", False), XA_CARDINAL);
    if (pid.isEmpty()) {
        trap.sync();
        return std::nullopt;
    }
    ClientWindow client;
    client.window = window;
    client.application.processIdentifier = qint32(pid.first());
    XClassHint hint{nullptr, nullptr};
    if (XGetClassHint(display, window, &hint) != 0) {
        const XData name(reinterpret_cast<unsigned char*>(hint.res_name));
        const XData windowClass(reinterpret_cast<unsigned char*>(hint.res_class));
        client.application.bundleIdentifier = QString::fromLocal8Bit(hint.res_class);
    }
    client.application.name = textProperty(display, window, XInternAtom(display, "_NET_WM_NAME", False),
                                           XInternAtom(display, "UTF8_STRING", False));
    if (client.application.name.isEmpty()) {
        client.application.name = client.application.bundleIdentifier;
    }
    client.application.isActive = window == active;
    // A window that vanished while being read is simply not there.
    if (trap.sync() != 0) {
        return std::nullopt;
    }
    return client;
}

QList<X11ApplicationWorkspace::ClientWindow> X11ApplicationWorkspace::clientWindows()
{
    QList<ClientWindow> result;
    if (m_display == nullptr) {
        return result;
    }
    Display* display = m_display;
    const Window active = activeWindow();
    for (const unsigned long window :
         longProperty(display, m_root, XInternAtom(display, "_NET_CLIENT_LIST", False), XA_WINDOW)) {
        if (std::optional<ClientWindow> client = describe(Window(window), active)) {
            result.append(*client);
        }
    }
    return result;
}

QList<RunningApplication> X11ApplicationWorkspace::runningApplications()
{
    // One entry per process: active if any of its windows is.
    QList<RunningApplication> result;
    for (const ClientWindow& client : clientWindows()) {
        auto it = std::find_if(result.begin(), result.end(), [&](const RunningApplication& known) {
            return known.processIdentifier == client.application.processIdentifier;
        });
        if (it == result.end()) {
            result.append(client.application);
        } else {
            it->isActive = it->isActive || client.application.isActive;
        }
    }
    return result;
}

std::optional<RunningApplication> X11ApplicationWorkspace::application(qint32 processIdentifier)
{
    for (const RunningApplication& application : runningApplications()) {
        if (application.processIdentifier == processIdentifier) {
            return application;
        }
    }
    return std::nullopt;
}

std::optional<RunningApplication> X11ApplicationWorkspace::application(const QString& bundleIdentifier)
{
    for (const RunningApplication& application : runningApplications()) {
        if (application.bundleIdentifier == bundleIdentifier) {
            return application;
        }
    }
    return std::nullopt;
}

std::optional<RunningApplication> X11ApplicationWorkspace::frontmostApplication()
{
    const Window active = activeWindow();
    if (active == 0) {
        return std::nullopt;
    }
    const std::optional<ClientWindow> client = describe(active, active);
    return client ? std::optional(client->application) : std::nullopt;
}

bool X11ApplicationWorkspace::activate(qint32 processIdentifier, WindowIdentifier window)
{
    QList<unsigned long> windows;
    for (const ClientWindow& client : clientWindows()) {
        if (client.application.processIdentifier == processIdentifier) {
            windows.append(client.window);
        }
    }
    if (windows.isEmpty()) {
        return false;
    }
    // The asked-for window, then the ones last active, then any: a window closed meanwhile is passed over.
    QList<unsigned long> preferred{(unsigned long)(window)};
    preferred.append(m_recentWindows.value(processIdentifier));
    preferred.append(windows.first());
    const auto chosen = std::find_if(preferred.begin(), preferred.end(),
                                     [&](unsigned long candidate) { return windows.contains(candidate); });
    Display* display = m_display;
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = *chosen;
    event.xclient.message_type = m_activeWindowAtom;
    event.xclient.format = 32;
    // Source indication 2: a pager acting for the user, which window managers honour without focus stealing
    // prevention.
    event.xclient.data.l[0] = 2;
    event.xclient.data.l[1] = CurrentTime;
    event.xclient.data.l[2] = long(m_lastActive);
    X11ErrorTrap trap(display);
    XSendEvent(display, m_root, False, SubstructureRedirectMask | SubstructureNotifyMask, &event);
    return trap.sync() == 0;
}

qint32 X11ApplicationWorkspace::currentProcessIdentifier()
{
    return qint32(getpid());
}
