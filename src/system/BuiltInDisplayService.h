#pragma once

#include "core/Clock.h"
#include "platform/DisplayControl.h"

#include <QList>
#include <QObject>
#include <QSet>
#include <optional>

class DefaultsStore;
class SystemBell;

// Switches the computer's built-in panel off while an external display is in use, and makes sure the user
// is never left without a working display: changes of displays are watched through the platform's
// notices and a 2 second watchdog, and the panel comes back at quit and at the next launch. GUI thread.
class BuiltInDisplayService : public QObject {
    Q_OBJECT
public:
    static inline const QString disabledDisplayKey = QStringLiteral("mivora.builtInDisplay.disabledID");

    BuiltInDisplayService(DisplayControl& displays, DefaultsStore& defaults, Clock& clock, SystemBell& bell,
                          QObject* parent = nullptr);
    ~BuiltInDisplayService() override;

    // First thing at launch: a panel the previous run left off is switched on, and the stored key removed.
    void restoreAfterPreviousLaunch();
    // Switches the panel this program switched off back on; nothing when none is off. Also at quit.
    void enableBuiltIn();
    // Switches the active built-in panel off if another display is awake and nothing mirrors it, else
    // rings the bell and changes nothing.
    void disableBuiltIn();
    // enableBuiltIn while a panel is off, else disableBuiltIn: the hotkey and the tray item.
    void toggle();
    // The safety rule: switches the panel back on when no other display is active, online and awake.
    void ensureSomeDisplayIsActive();

    // Whether the platform can switch displays at all.
    bool canSwitchDisplays() const { return m_canSwitch; }
    DisplayControl::PanelName panelName() const { return m_displays.panelName(); }
    // The display this program switched off, while it is off.
    std::optional<DisplayIdentifier> disabledDisplayID() const { return m_disabledDisplayID; }
    std::optional<DisplayIdentifier> activeBuiltInDisplay();
    // Whether disableBuiltIn would act now: a built-in panel is active, another display is awake, and the
    // panel is not mirrored.
    bool canDisableNow();
    // Whether the tray item and the hotkey row belong on screen: the platform can switch displays and a
    // panel is off or active.
    bool offersBuiltInDisplay();

signals:
    // The state changed: a panel went off or on, or the displays changed.
    void changed();

private:
    bool setEnabled(bool enabled, DisplayIdentifier display);
    void startWatchdog();
    void installChangeHandler();
    void handleChange(const DisplayChange& change);
    QList<DisplayIdentifier> otherActiveDisplays(DisplayIdentifier excluded);

    DisplayControl& m_displays;
    DefaultsStore& m_defaults;
    Clock& m_clock;
    SystemBell& m_bell;
    const bool m_canSwitch;
    std::optional<DisplayIdentifier> m_disabledDisplayID;
    ClockTimer m_watchdog;
    QSet<DisplayIdentifier> m_removedDisplays;
    // Notices wait here for the event loop's next turn, since they may arrive in the middle of a switch.
    QList<DisplayChange> m_pendingChanges;
    ClockTimer m_pendingHandOver;
    ListenerSubscription m_changes;
};
