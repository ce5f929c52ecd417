#pragma once

#include "platform/ListenerList.h"

#include <QList>
#include <cstdint>
#include <functional>
#include <optional>

// One display of the desktop; stable for as long as the display server runs, not across its restarts.
using DisplayIdentifier = std::uint32_t;

// What the platform reported of one display's change.
struct DisplayChange {
    DisplayIdentifier display = 0;
    // The display went away or was switched off.
    bool removed = false;
    // The display came or was switched on. Both may hold for one change.
    bool added = false;
    // An early notice of a change still to come, which a later one completes.
    bool beginsConfiguration = false;
};

// Where switching a display on or off failed, with the platform's status.
struct DisplaySwitchFailure {
    enum class Stage { begin, configure, complete };
    Stage stage = Stage::begin;
    std::int32_t status = 0;
};

// The displays of the desktop, and switching one of them on or off. GUI thread; each call is a few round
// trips to the display server.
class DisplayControl {
public:
    using ChangeHandler = std::function<void(const DisplayChange&)>;
    // What the user calls the computer's own panel on this platform.
    enum class PanelName { macBookDisplay, builtInDisplay };

    virtual ~DisplayControl() = default;

    // The displays that show part of the desktop now, in the platform's order.
    virtual QList<DisplayIdentifier> activeDisplays() = 0;
    // Whether the display is the computer's own panel; false for an unknown one.
    virtual bool isBuiltIn(DisplayIdentifier display) = 0;
    // Whether a monitor is attached to it; false for an unknown one.
    virtual bool isOnline(DisplayIdentifier display) = 0;
    // Whether it is attached but reported asleep (powered down); false for an unknown one.
    virtual bool isAsleep(DisplayIdentifier display) = 0;
    // Whether it shows the same picture as another active display.
    virtual bool isInMirrorSet(DisplayIdentifier display) = 0;
    // Whether this platform can switch displays at all; without it setDisplayEnabled always fails.
    virtual bool canSwitchDisplays() = 0;
    // Switches the display on or off for the login session, in one transaction; nullopt when it worked,
    // also when it already was so.
    virtual std::optional<DisplaySwitchFailure> setDisplayEnabled(DisplayIdentifier display,
                                                                  bool enabled) = 0;
    // Built-in panels that are attached but switched off now, by anyone.
    virtual QList<DisplayIdentifier> switchedOffBuiltInDisplays() = 0;
    // Non-blocking.
    virtual PanelName panelName() const = 0;
    // Calls handler on the GUI thread at each change of a display, for as long as the subscription lives.
    [[nodiscard]] virtual ListenerSubscription subscribeToChanges(ChangeHandler handler) = 0;
};
