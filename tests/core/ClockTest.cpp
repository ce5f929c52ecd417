#include "AwaitTask.h"
#include "TestClock.h"
#include "core/EventLoopClock.h"

#include <QCoreApplication>
#include <gtest/gtest.h>
#include <qcoro/qcorotask.h>

using namespace std::chrono_literals;

namespace {

QCoro::Task<> sleepThenRecord(Clock& clock, std::chrono::milliseconds delay, std::vector<long>& log)
{
    co_await clock.sleep(delay);
    log.push_back(static_cast<long>(clock.elapsed().count()));
    co_await clock.sleep(delay);
    log.push_back(static_cast<long>(clock.elapsed().count()));
}

} // namespace

TEST(TestClockTest, RunsCallsInDueOrderAtTheirOwnTimeAndNeverCancelledOnes)
{
    TestClock clock;
    std::vector<std::pair<int, long>> log;
    auto a = clock.schedule(300ms, [&] { log.emplace_back(1, clock.elapsed().count()); });
    auto b = clock.schedule(100ms, [&] { log.emplace_back(2, clock.elapsed().count()); });
    auto c = clock.schedule(100ms, [&] { log.emplace_back(3, clock.elapsed().count()); });
    auto cancelled = clock.schedule(100ms, [&] { log.emplace_back(4, 0); });
    cancelled.cancel();
    {
        auto dropped = clock.schedule(10ms, [&] { log.emplace_back(5, 0); });
    }
    // Reassigning a handle cancels what it held.
    ClockTimer reassigned = clock.schedule(10ms, [&] { log.emplace_back(6, 0); });
    reassigned = clock.schedule(400ms, [&] { log.emplace_back(7, clock.elapsed().count()); });

    clock.advance(99ms);
    EXPECT_TRUE(log.empty());
    clock.advance(1s);
    EXPECT_EQ(log, (std::vector<std::pair<int, long>>{{2, 100}, {3, 100}, {1, 300}, {7, 400}}));
    EXPECT_EQ(clock.elapsed(), 1099ms);
}

TEST(EventLoopClockTest, SleepAndRepeatingTimerRunOnTheEventLoop)
{
    EventLoopClock clock;
    std::vector<long> log;
    int ticks = 0;
    ClockTimer repeating = clock.scheduleRepeating(1ms, [&] { ++ticks; });
    auto task = sleepThenRecord(clock, 1ms, log);
    EXPECT_TRUE(AwaitTask::until([&] { return log.size() == 2 && ticks >= 3; }, 5s));

    repeating.cancel();
    const int frozen = ticks;
    QCoreApplication::processEvents();
    EXPECT_EQ(ticks, frozen);
}
