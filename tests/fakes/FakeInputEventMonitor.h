#pragma once

#include "platform/InputEventMonitor.h"

#include <list>

// Input monitors that tests feed by hand; events reach the handlers whose kinds match, in order.
class FakeInputEventMonitor : public InputEventMonitor {
public:
    std::unique_ptr<Handle> addMonitor(MonitoredInputEvent::Kinds kinds,
                                       std::function<void(const MonitoredInputEvent&)> handler) override
    {
        m_monitors.push_back({kinds, std::move(handler)});
        return std::make_unique<Entry>(m_monitors, std::prev(m_monitors.end()));
    }

    void deliver(const MonitoredInputEvent& event)
    {
        const auto monitors = m_monitors;
        for (const auto& monitor : monitors) {
            if (monitor.kinds.testFlag(event.kind)) {
                monitor.handler(event);
            }
        }
    }

    qsizetype monitorCount() const { return qsizetype(m_monitors.size()); }

private:
    struct Monitor {
        MonitoredInputEvent::Kinds kinds;
        std::function<void(const MonitoredInputEvent&)> handler;
    };
    class Entry : public Handle {
    public:
        Entry(std::list<Monitor>& list, std::list<Monitor>::iterator at) : m_list(list), m_at(at) {}
        ~Entry() override { m_list.erase(m_at); }

    private:
        std::list<Monitor>& m_list;
        std::list<Monitor>::iterator m_at;
    };

    std::list<Monitor> m_monitors;
};
