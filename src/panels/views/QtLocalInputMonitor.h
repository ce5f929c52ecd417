#pragma once

#include "platform/InputEventMonitor.h"

#include <QEvent>
#include <QObject>

// Mouse presses, left-button releases and key presses and releases going to this program's own windows,
// watched through an application-wide event filter that never takes an event. The window reported is the
// receiving widget's top-level window.
class QtLocalInputMonitor : public QObject, public InputEventMonitor {
    Q_OBJECT
public:
    explicit QtLocalInputMonitor(QObject* parent = nullptr);
    ~QtLocalInputMonitor() override;

    ListenerSubscription addMonitor(MonitoredInputEvent::Kinds kinds,
                                    std::function<void(const MonitoredInputEvent&)> handler) override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    ListenerList<const MonitoredInputEvent&> m_monitors;
    quint64 m_lastTimestamp = 0;
    QEvent::Type m_lastType = QEvent::None;
};
