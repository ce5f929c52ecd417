#include "panels/FloatingPanelDismissMonitor.h"

#include <QPointer>

namespace {

constexpr quint16 escapeKeyCode = 53;

const MonitoredInputEvent::Kinds mouseDownKinds = MonitoredInputEvent::Kind::leftMouseDown |
                                                  MonitoredInputEvent::Kind::rightMouseDown |
                                                  MonitoredInputEvent::Kind::otherMouseDown;

} // namespace

FloatingPanelDismissMonitor::FloatingPanelDismissMonitor(InputEventMonitor& localEvents,
                                                         InputEventMonitor& globalEvents, Panel panel,
                                                         std::function<void()> onDismiss, QObject* parent)
    : QObject(parent), m_panel(std::move(panel)), m_localEvents(localEvents), m_globalEvents(globalEvents),
      m_onDismiss(std::move(onDismiss))
{}

FloatingPanelDismissMonitor::~FloatingPanelDismissMonitor() = default;

void FloatingPanelDismissMonitor::install()
{
    remove();
    // Each event is handled one turn later, after it has reached its target, and only while this monitor
    // still exists.
    QPointer<FloatingPanelDismissMonitor> self(this);
    m_local = m_localEvents.addMonitor(
        mouseDownKinds | MonitoredInputEvent::Kind::keyDown, [self](const MonitoredInputEvent& event) {
            QMetaObject::invokeMethod(
                self, [self, event] { self->handleLocalEvent(event); }, Qt::QueuedConnection);
        });
    m_global = m_globalEvents.addMonitor(mouseDownKinds, [self](const MonitoredInputEvent&) {
        QMetaObject::invokeMethod(
            self, [self] { self->dismissIfVisible(); }, Qt::QueuedConnection);
    });
}

void FloatingPanelDismissMonitor::remove()
{
    m_local.reset();
    m_global.reset();
}

void FloatingPanelDismissMonitor::handleLocalEvent(const MonitoredInputEvent& event)
{
    if (!m_panel.isVisible || !m_panel.isVisible()) {
        return;
    }
    if (event.kind == MonitoredInputEvent::Kind::keyDown) {
        // Escape counts even in another window of this program; other keys never dismiss.
        if (event.macKeyCode == escapeKeyCode) {
            m_onDismiss();
        }
        return;
    }
    if (event.window != m_panel.window) {
        m_onDismiss();
    }
}

void FloatingPanelDismissMonitor::dismissIfVisible()
{
    if (m_panel.isVisible && m_panel.isVisible()) {
        m_onDismiss();
    }
}
