#pragma once

#include "platform/ApplicationWorkspace.h"
#include "platform/x11/X11EventPump.h"

#include <QHash>
#include <optional>

// The applications of an EWMH desktop: the windows of _NET_CLIENT_LIST, their process (_NET_WM_PID) and
// identifier (the class part of WM_CLASS). The active one is followed live through PropertyNotify on the
// root window, read by the program's event pump. Without a server everything is empty. GUI thread only.
class X11ApplicationWorkspace : public ApplicationWorkspace {
public:
    // Works on the pump's connection; the pump must outlive this object.
    explicit X11ApplicationWorkspace(X11EventPump& pump);
    X11ApplicationWorkspace(const X11ApplicationWorkspace&) = delete;
    X11ApplicationWorkspace& operator=(const X11ApplicationWorkspace&) = delete;

    QList<RunningApplication> runningApplications() override;
    std::optional<RunningApplication> application(qint32 processIdentifier) override;
    std::optional<RunningApplication> application(const QString& bundleIdentifier) override;
    std::optional<RunningApplication> frontmostApplication() override;
    WindowIdentifier lastActiveWindow(qint32 processIdentifier) override;
    bool activate(qint32 processIdentifier, WindowIdentifier window) override;
    qint32 currentProcessIdentifier() override;
    ListenerSubscription subscribeToActivations(ActivationHandler handler) override
    {
        return m_activations.subscribe(std::move(handler));
    }
    ListenerSubscription subscribeToWindowActivations(ActivationHandler handler) override
    {
        return m_windowActivations.subscribe(std::move(handler));
    }

    // The window of the application that has the focus, or 0. One round trip.
    unsigned long activeWindow();

private:
    struct ClientWindow {
        unsigned long window = 0;
        RunningApplication application;
    };

    QList<ClientWindow> clientWindows();
    std::optional<ClientWindow> describe(unsigned long window, unsigned long active);
    void activeWindowChanged();
    void noteActive(const ClientWindow& client);

    Display* m_display;
    unsigned long m_root = 0;
    unsigned long m_activeWindowAtom = 0;
    ListenerList<const RunningApplication&> m_activations;
    ListenerList<const RunningApplication&> m_windowActivations;
    unsigned long m_lastActive = 0;
    // The process of m_lastActive, 0 while no window is active.
    qint32 m_lastActiveProcess = 0;
    // The process of the last window in front; focus on no window leaves it as it is.
    qint32 m_frontProcess = 0;
    // Per process, its windows in the order they were last active, latest first.
    QHash<qint32, QList<unsigned long>> m_recentWindows;
    // Last, so no event reaches a half-destroyed object.
    X11EventPump::Subscription m_events;
};
