#pragma once

#include "platform/InputEventMonitor.h"
#include "platform/x11/X11EventPump.h"

// Mouse presses and releases and key releases that go to other applications, seen through XInput 2 raw
// events on the root window: no grab, so every event still reaches its target. A click over one of this
// program's own windows, or a key released while one of them has the focus, is left to the local monitor.
// Raw events are asked for only while a monitor exists (let go at the first event after the last one went).
// GUI thread.
class X11GlobalInputMonitor : public InputEventMonitor {
public:
    explicit X11GlobalInputMonitor(X11EventPump& pump);
    ~X11GlobalInputMonitor() override;

    // Key-down is never reported, and a key-up carries no key: what is typed in other applications is none
    // of this program's business, only that a gesture ended.
    ListenerSubscription addMonitor(MonitoredInputEvent::Kinds kinds,
                                    std::function<void(const MonitoredInputEvent&)> handler) override;

private:
    void selectRawEvents(bool on);
    void handle(const XEvent& event);
    // The pointer's position and whether Alt is down, read when the event arrives.
    void readPointer(MonitoredInputEvent& event) const;
    bool pointerOverOwnWindow() const;
    bool focusInOwnWindow() const;
    bool isOwnWindow(unsigned long window) const;

    X11EventPump& m_pump;
    X11EventPump::Subscription m_subscription;
    ListenerList<const MonitoredInputEvent&> m_monitors;
    int m_xiOpcode = -1;
    bool m_selected = false;
};
