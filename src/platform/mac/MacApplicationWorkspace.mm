#include "platform/mac/MacApplicationWorkspace.h"

#include "platform/mac/MacStringBridge.h"

#include <AppKit/AppKit.h>
#include <unistd.h>

namespace {

std::optional<RunningApplication> describe(NSRunningApplication* application)
{
    if (application == nil) {
        return std::nullopt;
    }
    return RunningApplication{application.processIdentifier, toQString(application.bundleIdentifier),
                              toQString(application.localizedName), bool(application.active)};
}

} // namespace

struct MacApplicationWorkspace::Observer {
    ListenerList<const RunningApplication&> activations;
    id token = nil;
};

MacApplicationWorkspace::MacApplicationWorkspace() : m_observer(std::make_unique<Observer>())
{
    Observer* observer = m_observer.get();
    NSNotificationCenter* center = [NSWorkspace sharedWorkspace].notificationCenter;
    observer->token = [center addObserverForName:NSWorkspaceDidActivateApplicationNotification
                                          object:nil
                                           queue:[NSOperationQueue mainQueue]
                                      usingBlock:^(NSNotification* notification) {
                                        id application = notification.userInfo[NSWorkspaceApplicationKey];
                                        if (![application isKindOfClass:[NSRunningApplication class]]) {
                                            return;
                                        }
                                        if (const auto running = describe(application)) {
                                            observer->activations.notify(*running);
                                        }
                                      }];
}

MacApplicationWorkspace::~MacApplicationWorkspace()
{
    [[NSWorkspace sharedWorkspace].notificationCenter removeObserver:m_observer->token];
}

QList<RunningApplication> MacApplicationWorkspace::runningApplications()
{
    QList<RunningApplication> result;
    NSArray<NSRunningApplication*>* applications = [NSWorkspace sharedWorkspace].runningApplications;
    for (NSUInteger index = 0; index < applications.count; ++index) {
        // Regular applications are those that may have windows and a Dock icon; agents and daemons have none.
        if (applications[index].activationPolicy == NSApplicationActivationPolicyRegular) {
            result.append(*describe(applications[index]));
        }
    }
    return result;
}

std::optional<RunningApplication> MacApplicationWorkspace::application(qint32 processIdentifier)
{
    return describe([NSRunningApplication runningApplicationWithProcessIdentifier:processIdentifier]);
}

std::optional<RunningApplication> MacApplicationWorkspace::application(const QString& bundleIdentifier)
{
    NSArray<NSRunningApplication*>* matches =
        [NSRunningApplication runningApplicationsWithBundleIdentifier:toNSString(bundleIdentifier)];
    return describe(matches.firstObject);
}

std::optional<RunningApplication> MacApplicationWorkspace::frontmostApplication()
{
    return describe([NSWorkspace sharedWorkspace].frontmostApplication);
}

ApplicationWorkspace::WindowIdentifier MacApplicationWorkspace::lastActiveWindow(qint32 /*processIdentifier*/)
{
    // The application raises its own last window; the focus service restores a particular one through the
    // accessibility tree.
    return 0;
}

bool MacApplicationWorkspace::activate(qint32 processIdentifier, WindowIdentifier /*window*/)
{
    NSRunningApplication* application =
        [NSRunningApplication runningApplicationWithProcessIdentifier:processIdentifier];
    if (application == nil) {
        return false;
    }
    // Giving up the front first lets the system honour a plain activation from an application in front.
    [NSApp deactivate];
    return [application activateWithOptions:0];
}

qint32 MacApplicationWorkspace::currentProcessIdentifier()
{
    return getpid();
}

ListenerSubscription MacApplicationWorkspace::subscribeToActivations(ActivationHandler handler)
{
    return m_observer->activations.subscribe(std::move(handler));
}

ListenerSubscription MacApplicationWorkspace::subscribeToWindowActivations(ActivationHandler handler)
{
    // The system tells of applications only; each brings its own last window along.
    return subscribeToActivations(std::move(handler));
}
