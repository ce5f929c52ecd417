#include "core/EventLoopClock.h"

#include <QTimer>

EventLoopClock::EventLoopClock(QObject* parent) : QObject(parent) {}

Clock::Duration EventLoopClock::elapsed() const
{
    return std::chrono::duration_cast<Duration>(std::chrono::steady_clock::now().time_since_epoch());
}

QDateTime EventLoopClock::now() const
{
    return QDateTime::currentDateTimeUtc();
}

ClockTimer EventLoopClock::schedule(Duration delay, std::function<void()> fn)
{
    return start(delay, false, std::move(fn));
}

ClockTimer EventLoopClock::scheduleRepeating(Duration interval, std::function<void()> fn)
{
    return start(interval, true, std::move(fn));
}

ClockTimer EventLoopClock::start(Duration interval, bool repeating, std::function<void()> fn)
{
    auto state = std::make_shared<ClockTimer::State>();
    auto* timer = new QTimer(this);
    timer->setTimerType(Qt::PreciseTimer);
    timer->setSingleShot(!repeating);
    timer->setInterval(std::max(interval, Duration::zero()));
    state->stop = [timer] {
        timer->stop();
        timer->deleteLater();
    };
    connect(timer, &QTimer::timeout, this, [state, timer, repeating, fn = std::move(fn)] {
        if (!state->active) {
            return;
        }
        if (!repeating) {
            // Mark done before calling: fn may resume a coroutine that destroys the handle.
            state->active = false;
            state->stop = nullptr;
            timer->deleteLater();
        }
        fn();
    });
    timer->start();
    return ClockTimer(state);
}
