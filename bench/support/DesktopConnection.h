#pragma once

#include "core/EventLoopClock.h"
#include "platform/x11/X11DisplayConnection.h"
#include "platform/x11/X11EventPump.h"

// A connection of the bench's own to the X server, its events pumped on the event loop's clock, for the X11
// adapters a bench drives directly (the workspace, the desktop's windows). Check `connection` before use.
struct DesktopConnection {
    X11DisplayConnection connection;
    EventLoopClock clock;
    X11EventPump pump{connection.get(), clock};
};
