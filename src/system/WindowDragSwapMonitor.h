#pragma once

#include "platform/InputEventMonitor.h"
#include "system/WindowTilingService.h"

#include <optional>

class DefaultsStore;

// Swaps two windows when the user drags one onto the other with Alt held: the window under the pointer at
// Alt+press is remembered, and at Alt+release, if it really moved, it trades frames with the window under
// the drop point. The window manager's own Alt+drag is the drag the user sees; the swap follows it. GUI
// thread.
class WindowDragSwapMonitor {
public:
    WindowDragSwapMonitor(InputEventMonitor& globalInput, const DefaultsStore& defaults,
                          WindowTilingService& tiling);

    // Starts watching the left button for good; a second call does nothing.
    void start();

private:
    struct DragStart {
        WindowTilingService::WindowId window = 0;
        QRect frame;
    };

    void handle(MonitoredInputEvent::Kind kind, bool option, QPoint point);

    InputEventMonitor& m_globalInput;
    const DefaultsStore& m_defaults;
    WindowTilingService& m_tiling;
    std::optional<DragStart> m_dragStart;
    ListenerSubscription m_monitor;
    bool m_started = false;
};
