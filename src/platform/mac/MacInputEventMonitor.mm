#include "platform/mac/MacInputEventMonitor.h"

#include <AppKit/AppKit.h>
#include <ApplicationServices/ApplicationServices.h>
#include <QCoreApplication>
#include <optional>

namespace {

using Handler = std::function<void(const MonitoredInputEvent&)>;

struct EventKind {
    NSEventType type;
    NSEventMask mask;
    MonitoredInputEvent::Kind kind;
};

constexpr EventKind eventKinds[] = {
    {NSEventTypeLeftMouseDown, NSEventMaskLeftMouseDown, MonitoredInputEvent::Kind::leftMouseDown},
    {NSEventTypeRightMouseDown, NSEventMaskRightMouseDown, MonitoredInputEvent::Kind::rightMouseDown},
    {NSEventTypeOtherMouseDown, NSEventMaskOtherMouseDown, MonitoredInputEvent::Kind::otherMouseDown},
    {NSEventTypeKeyDown, NSEventMaskKeyDown, MonitoredInputEvent::Kind::keyDown},
    {NSEventTypeLeftMouseUp, NSEventMaskLeftMouseUp, MonitoredInputEvent::Kind::leftMouseUp},
    {NSEventTypeKeyUp, NSEventMaskKeyUp, MonitoredInputEvent::Kind::keyUp},
};

NSEventMask maskOf(MonitoredInputEvent::Kinds kinds)
{
    NSEventMask mask = 0;
    for (const EventKind& entry : eventKinds) {
        mask |= kinds.testFlag(entry.kind) ? entry.mask : 0;
    }
    return mask;
}

std::optional<MonitoredInputEvent> translate(NSEvent* event)
{
    for (const EventKind& entry : eventKinds) {
        if (entry.type != event.type) {
            continue;
        }
        MonitoredInputEvent seen;
        seen.kind = entry.kind;
        const bool isKey = entry.kind == MonitoredInputEvent::Kind::keyDown ||
                           entry.kind == MonitoredInputEvent::Kind::keyUp;
        seen.macKeyCode = isKey ? event.keyCode : 0;
        seen.window = (__bridge const void*)event.window;
        seen.optionHeld = (event.modifierFlags & NSEventModifierFlagOption) != 0;
        // Quartz gives the location in the desktop's top-left, y-down space already; AppKit's is y-up.
        if (CGEventRef quartz = event.CGEvent; quartz != nullptr) {
            const CGPoint location = CGEventGetLocation(quartz);
            seen.pointer = QPoint(qRound(location.x), qRound(location.y));
        }
        return seen;
    }
    return std::nullopt;
}

void deliver(const std::weak_ptr<const Handler>& weak, NSEvent* event)
{
    const std::optional<MonitoredInputEvent> seen = translate(event);
    const std::shared_ptr<const Handler> live = weak.lock();
    if (seen && live) {
        (*live)(*seen);
    }
}

// A local monitor runs before the event is dispatched; its handler is promised the event afterwards.
void deliverAfterDispatch(const std::weak_ptr<const Handler>& weak, NSEvent* event)
{
    const std::optional<MonitoredInputEvent> seen = translate(event);
    if (!seen) {
        return;
    }
    QMetaObject::invokeMethod(
        QCoreApplication::instance(),
        [weak, seen = *seen] {
            if (const std::shared_ptr<const Handler> live = weak.lock()) {
                (*live)(seen);
            }
        },
        Qt::QueuedConnection);
}

// One installed monitor: removed, and its handler let go, when the last copy of the subscription goes.
class Registration {
public:
    Registration(id monitor, std::shared_ptr<const Handler> handler)
        : m_monitor(monitor), m_handler(std::move(handler))
    {}
    Registration(const Registration&) = delete;
    Registration& operator=(const Registration&) = delete;
    ~Registration() { [NSEvent removeMonitor:m_monitor]; }

private:
    id m_monitor;
    std::shared_ptr<const Handler> m_handler;
};

} // namespace

MacInputEventMonitor::MacInputEventMonitor(Scope scope) : m_scope(scope) {}

ListenerSubscription MacInputEventMonitor::addMonitor(MonitoredInputEvent::Kinds kinds, Handler handler)
{
    const NSEventMask mask = maskOf(kinds);
    if (mask == 0) {
        return {};
    }
    auto shared = std::make_shared<const Handler>(std::move(handler));
    // The blocks hold the handler weakly: an event already queued when the subscription goes finds it gone.
    const std::weak_ptr<const Handler> weak = shared;
    id monitor = nil;
    if (m_scope == Scope::otherApplications) {
        monitor = [NSEvent addGlobalMonitorForEventsMatchingMask:mask
                                                         handler:^(NSEvent* event) {
                                                           deliver(weak, event);
                                                         }];
    } else {
        monitor = [NSEvent addLocalMonitorForEventsMatchingMask:mask
                                                        handler:^NSEvent*(NSEvent* event) {
                                                          deliverAfterDispatch(weak, event);
                                                          return event;
                                                        }];
    }
    if (monitor == nil) {
        return {};
    }
    return ListenerSubscription(std::make_shared<Registration>(monitor, std::move(shared)));
}
