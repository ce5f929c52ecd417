#pragma once

#include <functional>

// The end of the program when its connection to the display server is lost (the server died or dropped
// it): nothing on screen can work any more, so the program keeps what it holds and stops, instead of
// failing at every turn or dying in a toolkit's own exit. GUI thread.
class DisplayConnectionMonitor {
public:
    virtual ~DisplayConnectionMonitor() = default;

    // From now on, a lost connection calls savePending once on the GUI thread (it must not touch the display)
    // and then ends the process with a failure status after one line on stderr that says why. An empty
    // function stops the watch.
    virtual void setLossHandler(std::function<void()> savePending) = 0;
};
