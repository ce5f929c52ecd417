#pragma once

#include "platform/DisplayControl.h"

#include <QMap>

// Scripted displays. A switch changes the display's active flag unless failures are queued; changes are
// announced only when the test says so, as the platform would, possibly late or never.
class FakeDisplayControl : public DisplayControl {
public:
    struct Screen {
        bool builtIn = false;
        bool active = true;
        bool online = true;
        bool asleep = false;
        bool mirrored = false;
    };

    QMap<DisplayIdentifier, Screen> screens;
    bool canSwitch = true;
    // The next switches fail with these, in order.
    QList<DisplaySwitchFailure> failures;
    QList<std::pair<DisplayIdentifier, bool>> switches;

    void announce(DisplayIdentifier display, bool removed, bool added)
    {
        m_changes.notify(DisplayChange{display, removed, added, false});
    }

    QList<DisplayIdentifier> activeDisplays() override
    {
        QList<DisplayIdentifier> active;
        for (auto it = screens.cbegin(); it != screens.cend(); ++it) {
            if (it->active) {
                active.append(it.key());
            }
        }
        return active;
    }
    bool isBuiltIn(DisplayIdentifier display) override { return screens.value(display).builtIn; }
    bool isOnline(DisplayIdentifier display) override
    {
        return screens.value(display, {false, false, false}).online;
    }
    bool isAsleep(DisplayIdentifier display) override { return screens.value(display).asleep; }
    bool isInMirrorSet(DisplayIdentifier display) override { return screens.value(display).mirrored; }
    bool canSwitchDisplays() override { return canSwitch; }
    std::optional<DisplaySwitchFailure> setDisplayEnabled(DisplayIdentifier display, bool enabled) override
    {
        switches.append({display, enabled});
        if (!failures.isEmpty()) {
            return failures.takeFirst();
        }
        if (!screens.contains(display)) {
            return DisplaySwitchFailure{DisplaySwitchFailure::Stage::begin, -1};
        }
        screens[display].active = enabled;
        return std::nullopt;
    }
    QList<DisplayIdentifier> switchedOffBuiltInDisplays() override
    {
        QList<DisplayIdentifier> off;
        for (auto it = screens.cbegin(); it != screens.cend(); ++it) {
            if (it->builtIn && it->online && !it->active) {
                off.append(it.key());
            }
        }
        return off;
    }
    PanelName panelName() const override { return PanelName::builtInDisplay; }
    ListenerSubscription subscribeToChanges(ChangeHandler handler) override
    {
        return m_changes.subscribe(std::move(handler));
    }

private:
    ListenerList<const DisplayChange&> m_changes;
};
