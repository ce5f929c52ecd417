#pragma once

#include "platform/DisplayControl.h"
#include "platform/x11/X11EventPump.h"

#include <QByteArray>
#include <QHash>
#include <optional>

// The outputs of the X server as displays, through XRandR 1.3 on the pump's connection. The built-in
// panel is the output whose ConnectorType is "Panel", or, without that property, whose name starts with
// eDP, LVDS or DSI. Active is an output with a CRTC, online one that is connected, asleep one the server
// has powered down (DPMS). Switching off releases the output's CRTC, moves what stays lit to the origin and
// shrinks the screen to it, so no dead area is left where the panel was; switching on moves the others
// back and restores the mode, position and rotation the output had when this object switched it off, or
// gives it its preferred mode right of the others when they are unknown. Changes come from RandR's output
// notices. Without a server or RandR 1.3 nothing is listed and nothing can be switched. GUI thread only.
class X11RandrDisplays : public DisplayControl {
public:
    // Works on the pump's connection; the pump must outlive this object.
    explicit X11RandrDisplays(X11EventPump& pump);
    X11RandrDisplays(const X11RandrDisplays&) = delete;
    X11RandrDisplays& operator=(const X11RandrDisplays&) = delete;
    ~X11RandrDisplays() override;

    QList<DisplayIdentifier> activeDisplays() override;
    bool isBuiltIn(DisplayIdentifier display) override;
    bool isOnline(DisplayIdentifier display) override;
    bool isAsleep(DisplayIdentifier display) override;
    bool isInMirrorSet(DisplayIdentifier display) override;
    bool canSwitchDisplays() override { return m_hasRandr; }
    std::optional<DisplaySwitchFailure> setDisplayEnabled(DisplayIdentifier display, bool enabled) override;
    QList<DisplayIdentifier> switchedOffBuiltInDisplays() override;
    PanelName panelName() const override { return PanelName::builtInDisplay; }
    // Whether an output is the computer's own panel, by its ConnectorType (nullopt when the driver sets
    // none) and, only without one, by its name.
    static bool isPanelConnector(const std::optional<QByteArray>& connectorType,
                                 const QByteArray& outputName);
    ListenerSubscription subscribeToChanges(ChangeHandler handler) override
    {
        return m_changes.subscribe(std::move(handler));
    }

private:
    struct Placement {
        unsigned long mode = 0;
        int x = 0;
        int y = 0;
        unsigned short rotation = 1;
        // How far the outputs that stayed lit were moved toward the origin when this one went off.
        int shiftX = 0;
        int shiftY = 0;
    };
    struct Snapshot;

    std::optional<Snapshot> snapshot();
    std::optional<DisplaySwitchFailure> switchOff(Snapshot& now, DisplayIdentifier display);
    std::optional<DisplaySwitchFailure> switchOn(Snapshot& now, DisplayIdentifier display);
    void fitScreen(int minimumWidth, int minimumHeight, bool shrink);
    // Moves every lit CRTC by dx, dy; the screen must already hold the result.
    void moveLit(const Snapshot& now, int dx, int dy);
    void handleEvent(const XEvent& event);

    Display* m_display;
    unsigned long m_root = 0;
    bool m_hasRandr = false;
    int m_eventBase = 0;
    // Where each output this object switched off was, for as long as the process runs.
    QHash<DisplayIdentifier, Placement> m_placements;
    ListenerList<const DisplayChange&> m_changes;
    // Last, so no event reaches a half-destroyed object.
    X11EventPump::Subscription m_events;
};
