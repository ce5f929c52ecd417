#pragma once

#include "platform/ApplicationWorkspace.h"

// A desktop of scripted applications, each with its main window numbered ten times the process. activate()
// records the request and, unless told otherwise, brings the application to the front at once and tells the
// activation listeners, as a window manager would.
class FakeApplicationWorkspace : public ApplicationWorkspace {
public:
    static constexpr qint32 ownProcess = 1;

    void addApplication(qint32 processIdentifier, const QString& bundleIdentifier)
    {
        m_applications.append({processIdentifier, bundleIdentifier, bundleIdentifier, false});
    }
    void removeApplication(qint32 processIdentifier)
    {
        m_applications.removeIf(
            [&](const RunningApplication& a) { return a.processIdentifier == processIdentifier; });
    }
    // Brings the application to the front and tells the listeners, as when the user clicks it.
    void bringToFront(qint32 processIdentifier);
    // Another window of the application in front comes forward: only the window listeners hear of it.
    void bringOtherWindowForward() { m_windowActivations.notify(*frontmostApplication()); }

    bool activationSucceeds = true;
    bool activationTakesEffect = true;
    QList<qint32> activations;
    // The window each activation asked for.
    QList<WindowIdentifier> activatedWindows;

    QList<RunningApplication> runningApplications() override;
    std::optional<RunningApplication> application(qint32 processIdentifier) override;
    std::optional<RunningApplication> application(const QString& bundleIdentifier) override;
    std::optional<RunningApplication> frontmostApplication() override;
    WindowIdentifier lastActiveWindow(qint32 processIdentifier) override
    {
        return WindowIdentifier(processIdentifier) * 10;
    }
    bool activate(qint32 processIdentifier, WindowIdentifier window) override;
    qint32 currentProcessIdentifier() override { return ownProcess; }
    ListenerSubscription subscribeToActivations(ActivationHandler handler) override
    {
        return m_activations.subscribe(std::move(handler));
    }
    ListenerSubscription subscribeToWindowActivations(ActivationHandler handler) override
    {
        return m_windowActivations.subscribe(std::move(handler));
    }

private:
    QList<RunningApplication> m_applications;
    std::optional<qint32> m_front;
    ListenerList<const RunningApplication&> m_activations;
    ListenerList<const RunningApplication&> m_windowActivations;
};
