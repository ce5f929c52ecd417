#pragma once

#include <QFlags>
#include <QtGlobal>
#include <functional>
#include <memory>

// One input event seen by a monitor. Monitors only watch: the event goes on to its target unchanged.
struct MonitoredInputEvent {
    enum class Kind { leftMouseDown = 0x1, rightMouseDown = 0x2, otherMouseDown = 0x4, keyDown = 0x8 };
    Q_DECLARE_FLAGS(Kinds, Kind)

    Kind kind = Kind::leftMouseDown;
    // The macOS virtual key code of a key-down (53 is Escape); 0 for mouse events.
    quint16 macKeyCode = 0;
    // Opaque identity of this program's window that receives the event; null when the event goes to
    // another application.
    const void* window = nullptr;
};
Q_DECLARE_OPERATORS_FOR_FLAGS(MonitoredInputEvent::Kinds)

// Watches input events without taking them: either those going to this program's own windows (the local
// monitor) or those going to other applications (the global monitor). GUI thread.
class InputEventMonitor {
public:
    // Keeps a monitor in force for as long as it lives.
    class Handle {
    public:
        virtual ~Handle() = default;
    };

    virtual ~InputEventMonitor() = default;

    // Calls handler on the GUI thread, after the event has been delivered, for each event of the given
    // kinds; null where the platform cannot watch such events. Non-blocking.
    virtual std::unique_ptr<Handle> addMonitor(MonitoredInputEvent::Kinds kinds,
                                               std::function<void(const MonitoredInputEvent&)> handler) = 0;
};
