#pragma once

#include "platform/InputEventMonitor.h"
#include "platform/x11/X11EventPump.h"

// Mouse presses that go to other applications, seen through XInput 2 raw events on the root window: no
// grab, so every press still reaches its target. A press over one of this program's own windows is left to
// the local monitor. Raw events are asked for only while a monitor exists (let go at the first press after
// the last one went). GUI thread.
class X11GlobalInputMonitor : public InputEventMonitor {
public:
    explicit X11GlobalInputMonitor(X11EventPump& pump);
    ~X11GlobalInputMonitor() override;

    // Key-down is never reported: keys typed in other applications are none of this program's business.
    ListenerSubscription addMonitor(MonitoredInputEvent::Kinds kinds,
                                    std::function<void(const MonitoredInputEvent&)> handler) override;

private:
    void selectRawPresses(bool on);
    void handle(const XEvent& event);
    bool pointerOverOwnWindow() const;

    X11EventPump& m_pump;
    X11EventPump::Subscription m_subscription;
    ListenerList<const MonitoredInputEvent&> m_monitors;
    int m_xiOpcode = -1;
    bool m_selected = false;
};
