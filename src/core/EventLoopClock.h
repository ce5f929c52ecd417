#pragma once

#include "core/Clock.h"

#include <QObject>

// The real clock: QTimer on the Qt event loop, a steady clock for elapsed time.
class EventLoopClock : public QObject, public Clock {
    Q_OBJECT
public:
    explicit EventLoopClock(QObject* parent = nullptr);

    Duration elapsed() const override;
    QDateTime now() const override;
    ClockTimer schedule(Duration delay, std::function<void()> fn) override;
    ClockTimer scheduleRepeating(Duration interval, std::function<void()> fn) override;

private:
    ClockTimer start(Duration interval, bool repeating, std::function<void()> fn);
};
