#pragma once

#include "platform/InputEventMonitor.h"

// Input monitors that tests feed by hand; events reach the handlers whose kinds match, in order.
class FakeInputEventMonitor : public InputEventMonitor {
public:
    ListenerSubscription addMonitor(MonitoredInputEvent::Kinds kinds,
                                    std::function<void(const MonitoredInputEvent&)> handler) override
    {
        return subscribeFiltered(m_monitors, kinds, std::move(handler));
    }

    void deliver(const MonitoredInputEvent& event) { m_monitors.notify(event); }
    bool hasMonitors() { return !m_monitors.isEmpty(); }

private:
    ListenerList<const MonitoredInputEvent&> m_monitors;
};
