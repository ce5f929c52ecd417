#pragma once

#include <QDateTime>
#include <chrono>
#include <coroutine>
#include <functional>
#include <memory>

// Handle of a call scheduled on a Clock. Cancelling it, or destroying it, drops the call if it has not run
// yet.
class ClockTimer {
public:
    struct State {
        bool active = true;
        std::function<void()> stop;
    };

    ClockTimer() = default;
    explicit ClockTimer(std::shared_ptr<State> state) : m_state(std::move(state)) {}
    ClockTimer(ClockTimer&& other) noexcept = default;
    ClockTimer& operator=(ClockTimer&& other) noexcept;
    ClockTimer(const ClockTimer&) = delete;
    ClockTimer& operator=(const ClockTimer&) = delete;
    ~ClockTimer() { cancel(); }

    void cancel();
    bool isActive() const { return m_state && m_state->active; }

private:
    std::shared_ptr<State> m_state;
};

// Every sleep, timer and "now" of the core goes through this, so tests can run the program's timings on
// virtual time. All members are for the GUI thread; scheduled calls run on it.
class Clock {
public:
    using Duration = std::chrono::milliseconds;

    class SleepAwaiter {
    public:
        SleepAwaiter(Clock& clock, Duration delay) : m_clock(clock), m_delay(delay) {}
        bool await_ready() const noexcept { return false; }
        void await_suspend(std::coroutine_handle<> handle)
        {
            m_timer = m_clock.schedule(m_delay, [handle] { handle.resume(); });
        }
        void await_resume() const noexcept {}

    private:
        Clock& m_clock;
        Duration m_delay;
        // Lives in the suspended coroutine's frame: destroying the frame cancels the wake-up.
        ClockTimer m_timer;
    };

    virtual ~Clock() = default;

    // Monotonic time since an arbitrary origin. Non-blocking.
    virtual Duration elapsed() const = 0;
    // Wall-clock time in UTC. Non-blocking.
    virtual QDateTime now() const = 0;
    // Runs fn once after delay on the GUI thread. Non-blocking.
    [[nodiscard]] virtual ClockTimer schedule(Duration delay, std::function<void()> fn) = 0;
    // Runs fn every interval on the GUI thread until the timer is cancelled. Non-blocking.
    [[nodiscard]] virtual ClockTimer scheduleRepeating(Duration interval, std::function<void()> fn) = 0;

    // co_await clock.sleep(ms) suspends the calling coroutine; the GUI thread stays free.
    SleepAwaiter sleep(Duration delay) { return SleepAwaiter(*this, delay); }
};
