#pragma once

#include "platform/InputEventMonitor.h"

#include <QObject>
#include <functional>
#include <memory>

// Closes a floating panel on Escape or on a click outside it. Nothing is swallowed: the click still reaches
// its target, and the panel goes one event-loop turn later. A monitor pair exists only while the panel is
// shown. GUI thread.
class FloatingPanelDismissMonitor : public QObject {
    Q_OBJECT
public:
    struct Panel {
        // Opaque identity of the panel's window, as the local monitor reports it.
        const void* window = nullptr;
        std::function<bool()> isVisible;
    };

    // Both monitors must outlive this object; onDismiss normally calls remove() and hides the panel.
    FloatingPanelDismissMonitor(InputEventMonitor& localEvents, InputEventMonitor& globalEvents, Panel panel,
                                std::function<void()> onDismiss, QObject* parent = nullptr);
    ~FloatingPanelDismissMonitor() override;

    // Starts watching, replacing any earlier pair of monitors.
    void install();
    // Stops watching; safe to call repeatedly.
    void remove();
    bool isInstalled() const { return bool(m_local) || bool(m_global); }

    // The rules for an event going to one of this program's windows: Escape anywhere dismisses; inside the
    // panel nothing does; a click in another window of this program dismisses, a key typed there does not.
    void handleLocalEvent(const MonitoredInputEvent& event);
    // An event going to another application is always an outside click.
    void dismissIfVisible();

private:
    Panel m_panel;
    InputEventMonitor& m_localEvents;
    InputEventMonitor& m_globalEvents;
    std::function<void()> m_onDismiss;
    ListenerSubscription m_local;
    ListenerSubscription m_global;
};
