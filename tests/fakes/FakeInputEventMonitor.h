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
    // An event of this kind; the rest of it (key, receiving window, Alt, pointer) is filled in by the caller.
    static MonitoredInputEvent event(MonitoredInputEvent::Kind kind, quint16 macKeyCode = 0,
                                     const void* window = nullptr)
    {
        MonitoredInputEvent made;
        made.kind = kind;
        made.macKeyCode = macKeyCode;
        made.window = window;
        return made;
    }
    bool hasMonitors() { return !m_monitors.isEmpty(); }

private:
    ListenerList<const MonitoredInputEvent&> m_monitors;
};
