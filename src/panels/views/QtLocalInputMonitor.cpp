#include "panels/views/QtLocalInputMonitor.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWidget>

QtLocalInputMonitor::QtLocalInputMonitor(QObject* parent) : QObject(parent)
{
    qApp->installEventFilter(this);
}

QtLocalInputMonitor::~QtLocalInputMonitor() = default;

ListenerSubscription QtLocalInputMonitor::addMonitor(MonitoredInputEvent::Kinds kinds,
                                                     std::function<void(const MonitoredInputEvent&)> handler)
{
    return subscribeFiltered(m_monitors, kinds, std::move(handler));
}

bool QtLocalInputMonitor::eventFilter(QObject* watched, QEvent* event)
{
    // Every event passes through here; only presses and releases matter, and only while someone watches.
    if (!watched->isWidgetType() || m_monitors.isEmpty()) {
        return false;
    }
    MonitoredInputEvent seen;
    if (event->type() == QEvent::MouseButtonPress) {
        const Qt::MouseButton button = static_cast<QMouseEvent*>(event)->button();
        seen.kind = button == Qt::LeftButton    ? MonitoredInputEvent::Kind::leftMouseDown
                    : button == Qt::RightButton ? MonitoredInputEvent::Kind::rightMouseDown
                                                : MonitoredInputEvent::Kind::otherMouseDown;
    } else if (event->type() == QEvent::MouseButtonRelease &&
               static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
        seen.kind = MonitoredInputEvent::Kind::leftMouseUp;
    } else if (event->type() == QEvent::KeyPress) {
        seen.kind = MonitoredInputEvent::Kind::keyDown;
        // Only Escape means anything to the watchers; it carries its macOS key code.
        seen.macKeyCode = static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape ? 53 : 0;
    } else if (event->type() == QEvent::KeyRelease && !static_cast<QKeyEvent*>(event)->isAutoRepeat()) {
        seen.kind = MonitoredInputEvent::Kind::keyUp;
    } else {
        return false;
    }
    // An ignored press travels on to the parent widgets, each time through this filter: it counts once.
    const auto* input = static_cast<QInputEvent*>(event);
    if (input->timestamp() == m_lastTimestamp && event->type() == m_lastType) {
        return false;
    }
    m_lastTimestamp = input->timestamp();
    m_lastType = event->type();
    seen.window = static_cast<QWidget*>(watched)->window();
    m_monitors.notify(seen);
    return false;
}
