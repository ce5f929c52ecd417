#pragma once

#include "platform/InputEventMonitor.h"

// NSEvent monitors, one per subscription and removed with it. The global scope sees copies of the events
// going to other applications (key events only once the accessibility grant is given); the local scope sees
// the events going to this program's own windows, and reports each one a turn later, once it has been
// dispatched. An event's window is the NSWindow it goes to.
class MacInputEventMonitor : public InputEventMonitor {
public:
    enum class Scope { otherApplications, ownWindows };

    explicit MacInputEventMonitor(Scope scope);

    ListenerSubscription addMonitor(MonitoredInputEvent::Kinds kinds,
                                    std::function<void(const MonitoredInputEvent&)> handler) override;

private:
    Scope m_scope;
};
