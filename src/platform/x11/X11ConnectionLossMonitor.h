#pragma once

#include "platform/DisplayConnectionMonitor.h"

// Watches both of the program's connections to the X server: its own Xlib connection, through Xlib's I/O
// error handler (whose default prints and exits), and Qt's xcb connection, whose loss Qt reports with a
// warning just before it calls exit(1) from its event processing. Whichever breaks first ends the program
// the same way. The handlers are process-wide, so one monitor watches at a time. GUI thread.
class X11ConnectionLossMonitor : public DisplayConnectionMonitor {
public:
    X11ConnectionLossMonitor() = default;
    ~X11ConnectionLossMonitor() override;
    X11ConnectionLossMonitor(const X11ConnectionLossMonitor&) = delete;
    X11ConnectionLossMonitor& operator=(const X11ConnectionLossMonitor&) = delete;

    void setLossHandler(std::function<void()> savePending) override;

private:
    bool m_watching = false;
};
