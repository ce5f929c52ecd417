#pragma once

#include "platform/ListenerList.h"
#include "platform/RunningApplication.h"

#include <QList>
#include <functional>
#include <optional>

// The applications on the desktop and which of them is in front.
class ApplicationWorkspace {
public:
    using ActivationHandler = std::function<void(const RunningApplication&)>;
    // One top-level window on the desktop; 0 is none.
    using WindowIdentifier = quint64;

    virtual ~ApplicationWorkspace() = default;

    // Every running application with a window, one entry per process. GUI thread; a few round trips.
    virtual QList<RunningApplication> runningApplications() = 0;
    // The running application of that process, or nullopt when it has no window any more. GUI thread.
    virtual std::optional<RunningApplication> application(qint32 processIdentifier) = 0;
    // The first running application with that identifier, or nullopt. GUI thread.
    virtual std::optional<RunningApplication> application(const QString& bundleIdentifier) = 0;
    // The application in front, or nullopt when no window has the focus. GUI thread.
    virtual std::optional<RunningApplication> frontmostApplication() = 0;
    // The window of that process that was in front most recently while the workspace watched, or 0. GUI
    // thread; non-blocking.
    virtual WindowIdentifier lastActiveWindow(qint32 processIdentifier) = 0;
    // Asks the desktop to bring the application forward, taking the focus from this program: with window in
    // front while it is still one of the application's, otherwise the application's most recently active
    // window. True when the request could be made, not when it has been honoured. GUI thread; a few round
    // trips.
    virtual bool activate(qint32 processIdentifier, WindowIdentifier window) = 0;
    // This program's own process, which never counts as a target. Non-blocking.
    virtual qint32 currentProcessIdentifier() = 0;
    // Calls handler on the GUI thread each time another application comes to the front, that is a window of
    // another process than the one last in front; a move between windows of one application, or back to it
    // from focus on no window, is none. For as long as the subscription lives; any number of handlers may
    // listen. Non-blocking.
    [[nodiscard]] virtual ListenerSubscription subscribeToActivations(ActivationHandler handler) = 0;
    // The same for each window that comes to the front, also another one of the application in front; where
    // the platform tells of applications only, the same as subscribeToActivations. Non-blocking.
    [[nodiscard]] virtual ListenerSubscription subscribeToWindowActivations(ActivationHandler handler) = 0;
};
