#pragma once

#include "core/Clock.h"

#include <map>

// Virtual time for tests: nothing runs until the test advances the clock, and then every call due by the
// new time runs in order of its due time, at that time.
class TestClock : public Clock {
public:
    TestClock();

    Duration elapsed() const override { return m_now; }
    QDateTime now() const override;
    ClockTimer schedule(Duration delay, std::function<void()> fn) override;
    ClockTimer scheduleRepeating(Duration interval, std::function<void()> fn) override;

    void advance(Duration by);
    // Runs due calls until nothing is left, advancing time as needed; bounded so a repeating timer cannot
    // spin forever.
    void runUntilIdle(Duration limit = std::chrono::hours(24));
    std::size_t pendingCount() const;
    // The wall-clock time that elapsed() zero corresponds to.
    void setWallOrigin(const QDateTime& origin) { m_wallOrigin = origin; }

private:
    struct Entry {
        std::shared_ptr<ClockTimer::State> state;
        std::function<void()> fn;
        Duration interval;
        bool repeating;
    };
    ClockTimer add(Duration delay, Duration interval, bool repeating, std::function<void()> fn);
    bool runNext(Duration limit);

    Duration m_now{0};
    QDateTime m_wallOrigin;
    std::uint64_t m_sequence = 0;
    std::map<std::pair<Duration, std::uint64_t>, Entry> m_queue;
};
