#pragma once

#include "platform/ApplicationWorkspace.h"

#include <memory>

// NSWorkspace's running applications, followed through its activation notification. Windows are the
// accessibility tree's business on macOS, so this workspace names none and activates whole applications.
class MacApplicationWorkspace : public ApplicationWorkspace {
public:
    MacApplicationWorkspace();
    ~MacApplicationWorkspace() override;
    MacApplicationWorkspace(const MacApplicationWorkspace&) = delete;
    MacApplicationWorkspace& operator=(const MacApplicationWorkspace&) = delete;

    QList<RunningApplication> runningApplications() override;
    std::optional<RunningApplication> application(qint32 processIdentifier) override;
    std::optional<RunningApplication> application(const QString& bundleIdentifier) override;
    std::optional<RunningApplication> frontmostApplication() override;
    WindowIdentifier lastActiveWindow(qint32 processIdentifier) override;
    bool activate(qint32 processIdentifier, WindowIdentifier window) override;
    qint32 currentProcessIdentifier() override;
    ListenerSubscription subscribeToActivations(ActivationHandler handler) override;
    ListenerSubscription subscribeToWindowActivations(ActivationHandler handler) override;

private:
    // Holds the notification observer.
    struct Observer;
    std::unique_ptr<Observer> m_observer;
};
