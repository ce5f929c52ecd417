#pragma once

// Lets a control of this program take chords that are otherwise claimed for the whole desktop: while a
// suspension lasts, pressing a configured hotkey reaches the focused widget instead of running its action.
class GlobalHotkeySuspension {
public:
    virtual ~GlobalHotkeySuspension() = default;

    // Releases every global chord until the matching resume; suspensions nest. Non-blocking beyond one
    // round trip to the platform.
    virtual void suspendGlobalHotkeys() = 0;
    // Ends one suspension; after the last one the configured chords are claimed again from the settings of
    // that moment.
    virtual void resumeGlobalHotkeys() = 0;
};
