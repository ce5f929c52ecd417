#include "AtspiFocusTracker.h"

namespace {
// Every state change rather than only the focus: AT-SPI's cache of states follows these events, and the
// applications send only the events somebody listens to.
constexpr const char* stateEvents = "object:state-changed";
constexpr const char* focusEvent = "object:state-changed:focused";

struct EventFree {
    void operator()(AtspiEvent* event) const { g_boxed_free(ATSPI_TYPE_EVENT, event); }
};
} // namespace

AtspiFocusTracker::AtspiFocusTracker()
    : m_listener(atspi_event_listener_new(&AtspiFocusTracker::onFocusEvent, this, nullptr))
{
    GError* error = nullptr;
    // Registering makes the applications send the event at all; without it the tracker only stays empty.
    if (!atspi_event_listener_register(m_listener.get(), stateEvents, &error) && error != nullptr) {
        g_error_free(error);
    }
}

AtspiFocusTracker::~AtspiFocusTracker()
{
    GError* error = nullptr;
    if (!atspi_event_listener_deregister(m_listener.get(), stateEvents, &error) && error != nullptr) {
        g_error_free(error);
    }
}

QByteArray AtspiFocusTracker::busName(AtspiAccessible* object)
{
    // WORKAROUND: AT-SPI has no call that gives an object's bus name; its structures are public in the
    // headers, so the name is read directly.
    if (object == nullptr || object->parent.app == nullptr || object->parent.app->bus_name == nullptr) {
        return {};
    }
    return QByteArray(object->parent.app->bus_name);
}

void AtspiFocusTracker::onFocusEvent(AtspiEvent* event, void* self)
{
    // The listener is handed its own copy of each event.
    const std::unique_ptr<AtspiEvent, EventFree> owned(event);
    auto* tracker = static_cast<AtspiFocusTracker*>(self);
    const QByteArray application = busName(event->source);
    if (application.isEmpty() || qstrcmp(event->type, focusEvent) != 0) {
        return;
    }
    if (event->detail1 != 0) {
        tracker->m_focused.insert(application,
                                  adoptAtspiObject(ATSPI_ACCESSIBLE(g_object_ref(event->source))));
        return;
    }
    const AccessibilityElement current = tracker->m_focused.value(application);
    if (current && current.handle<AtspiAccessible>() == event->source) {
        tracker->m_focused.remove(application);
    }
}
