#pragma once

#include "AtspiObjectPtr.h"

#include <QByteArray>
#include <QHash>

// Follows the keyboard focus of every application on the accessibility bus through its focus events
// ("object:state-changed:focused"; it subscribes to every state change, which keeps AT-SPI's cache of states
// current), so the focused element of an application is known without walking its
// tree. The events arrive through the GLib main context, which Qt's event loop runs on the GUI thread. Only
// focus gained after construction is known. AT-SPI must be initialised for the tracker's whole life.
class AtspiFocusTracker {
public:
    AtspiFocusTracker();
    ~AtspiFocusTracker();
    AtspiFocusTracker(const AtspiFocusTracker&) = delete;
    AtspiFocusTracker& operator=(const AtspiFocusTracker&) = delete;

    // The element that last gained the focus in the application with this unique bus name and has not lost
    // it since; null when none is known.
    AccessibilityElement focusedElement(const QByteArray& busName) const { return m_focused.value(busName); }

    // Takes an element found focused some other way as the application's focus, until its events say
    // otherwise.
    void remember(const QByteArray& busName, const AccessibilityElement& element)
    {
        m_focused.insert(busName, element);
    }

    // The unique bus name of the application an object belongs to; empty when it has none.
    static QByteArray busName(AtspiAccessible* object);

private:
    static void onFocusEvent(AtspiEvent* event, void* self);

    AtspiObjectPtr<AtspiEventListener> m_listener;
    QHash<QByteArray, AccessibilityElement> m_focused;
};
