#pragma once

#include "X11DisplayConnection.h"
#include "platform/ApplicationWorkspace.h"

#include <QObject>
#include <QSocketNotifier>
#include <optional>

// The applications of an EWMH desktop: the windows of _NET_CLIENT_LIST, their process (_NET_WM_PID) and
// identifier (the class part of WM_CLASS). The active one is followed live through PropertyNotify on the
// root window, on a connection of its own read through the event loop. Without a server everything is
// empty.
class X11ApplicationWorkspace : public QObject, public ApplicationWorkspace {
    Q_OBJECT
public:
    explicit X11ApplicationWorkspace(const QByteArray& displayName = {}, QObject* parent = nullptr);
    ~X11ApplicationWorkspace() override;

    QList<RunningApplication> runningApplications() override;
    std::optional<RunningApplication> application(qint32 processIdentifier) override;
    std::optional<RunningApplication> application(const QString& bundleIdentifier) override;
    std::optional<RunningApplication> frontmostApplication() override;
    bool activate(qint32 processIdentifier) override;
    qint32 currentProcessIdentifier() override;
    void setActivationHandler(ActivationHandler handler) override { m_handler = std::move(handler); }

    // The window of the application that has the focus, or 0.
    unsigned long activeWindow();

private:
    struct ClientWindow {
        unsigned long window = 0;
        RunningApplication application;
    };

    QList<ClientWindow> clientWindows();
    std::optional<ClientWindow> describe(unsigned long window, unsigned long active);
    void readEvents();

    X11DisplayConnection m_connection;
    unsigned long m_root = 0;
    unsigned long m_activeWindowAtom = 0;
    QSocketNotifier* m_notifier = nullptr;
    ActivationHandler m_handler;
    unsigned long m_lastActive = 0;
    qint32 m_lastActiveProcess = 0;
};
