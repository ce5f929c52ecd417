#pragma once

#include "platform/ListenerList.h"

#include <QFlags>
#include <QPoint>
#include <QtGlobal>
#include <functional>
#include <memory>

// One input event seen by a monitor. Monitors only watch: the event goes on to its target unchanged.
struct MonitoredInputEvent {
    enum class Kind {
        leftMouseDown = 0x1,
        rightMouseDown = 0x2,
        otherMouseDown = 0x4,
        keyDown = 0x8,
        leftMouseUp = 0x10,
        keyUp = 0x20,
    };
    Q_DECLARE_FLAGS(Kinds, Kind)

    Kind kind = Kind::leftMouseDown;
    // The macOS virtual key code of a key-down (53 is Escape); 0 for mouse events.
    quint16 macKeyCode = 0;
    // Opaque identity of this program's window that receives the event; null when the event goes to
    // another application.
    const void* window = nullptr;
    // Whether Alt (the Option key of other platforms) was held at the event.
    bool optionHeld = false;
    // The pointer at the event, in the desktop's top-left, y-down pixels.
    QPoint pointer;
};
Q_DECLARE_OPERATORS_FOR_FLAGS(MonitoredInputEvent::Kinds)

// Watches input events without taking them: either those going to this program's own windows (the local
// monitor) or those going to other applications (the global monitor). GUI thread.
class InputEventMonitor {
public:
    virtual ~InputEventMonitor() = default;

    // Calls handler on the GUI thread, after the event has been delivered, for each event of the given
    // kinds, for as long as the subscription lives; an empty subscription where the platform cannot watch
    // such events. Non-blocking.
    [[nodiscard]] virtual ListenerSubscription
    addMonitor(MonitoredInputEvent::Kinds kinds, std::function<void(const MonitoredInputEvent&)> handler) = 0;

protected:
    // The monitors' shared book-keeping: each handler sees only the kinds it asked for.
    static ListenerSubscription subscribeFiltered(ListenerList<const MonitoredInputEvent&>& monitors,
                                                  MonitoredInputEvent::Kinds kinds,
                                                  std::function<void(const MonitoredInputEvent&)> handler)
    {
        return monitors.subscribe([kinds, handler = std::move(handler)](const MonitoredInputEvent& event) {
            if (kinds.testFlag(event.kind)) {
                handler(event);
            }
        });
    }
};
