#include "TestClock.h"

TestClock::TestClock() : m_wallOrigin(QDateTime(QDate(2026, 1, 15), QTime(12, 0), Qt::UTC)) {}

QDateTime TestClock::now() const
{
    return m_wallOrigin.addMSecs(m_now.count());
}

ClockTimer TestClock::schedule(Duration delay, std::function<void()> fn)
{
    return add(delay, Duration::zero(), false, std::move(fn));
}

ClockTimer TestClock::scheduleRepeating(Duration interval, std::function<void()> fn)
{
    return add(interval, interval, true, std::move(fn));
}

ClockTimer TestClock::add(Duration delay, Duration interval, bool repeating, std::function<void()> fn)
{
    auto state = std::make_shared<ClockTimer::State>();
    m_queue.emplace(std::pair{m_now + std::max(delay, Duration::zero()), m_sequence++},
                    Entry{state, std::move(fn), interval, repeating});
    return ClockTimer(state);
}

bool TestClock::runNext(Duration limit)
{
    while (!m_queue.empty()) {
        auto it = m_queue.begin();
        if (!it->second.state->active) {
            m_queue.erase(it);
            continue;
        }
        if (it->first.first > limit) {
            return false;
        }
        Entry entry = std::move(it->second);
        m_now = std::max(m_now, it->first.first);
        m_queue.erase(it);
        if (entry.repeating) {
            m_queue.emplace(std::pair{m_now + std::max(entry.interval, Duration(1)), m_sequence++}, entry);
        } else {
            entry.state->active = false;
        }
        entry.fn();
        return true;
    }
    return false;
}

void TestClock::advance(Duration by)
{
    const Duration until = m_now + by;
    while (runNext(until)) {
    }
    m_now = std::max(m_now, until);
}

void TestClock::runUntilIdle(Duration limit)
{
    const Duration end = m_now + limit;
    while (runNext(end)) {
    }
}

std::size_t TestClock::pendingCount() const
{
    std::size_t count = 0;
    for (const auto& [key, entry] : m_queue) {
        count += entry.state->active ? 1 : 0;
    }
    return count;
}
