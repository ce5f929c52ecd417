#pragma once

#include "core/Clock.h"

// The part of the clipboard history that a transient clipboard use (copy out, paste in) has to drive, so
// the history never records what the use itself puts on the clipboard.
class ClipboardCaptureControl {
public:
    virtual ~ClipboardCaptureControl() = default;

    // No capture until now + duration; never shortens a window already running. GUI thread.
    virtual void suppressCapture(Clock::Duration duration) = 0;
    // Ends a transient use: whatever it left on the clipboard counts as seen. GUI thread.
    virtual void finishTransientPasteboardUse() = 0;
};
