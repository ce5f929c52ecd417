#include "TestClock.h"
#include "core/EventLoopClock.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>
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

TEST(TestClockTest, RunsCallsInDueOrderAtTheirOwnTime)
{
    TestClock clock;
    std::vector<std::pair<int, long>> log;
    auto a = clock.schedule(300ms, [&] { log.emplace_back(1, clock.elapsed().count()); });
    auto b = clock.schedule(100ms, [&] { log.emplace_back(2, clock.elapsed().count()); });
    auto c = clock.schedule(100ms, [&] { log.emplace_back(3, clock.elapsed().count()); });

    clock.advance(99ms);
    EXPECT_TRUE(log.empty());
    clock.advance(1ms);
    ASSERT_EQ(log.size(), 2u);
    EXPECT_EQ(log[0], std::make_pair(2, 100L));
    EXPECT_EQ(log[1], std::make_pair(3, 100L));
    clock.advance(1s);
    ASSERT_EQ(log.size(), 3u);
    EXPECT_EQ(log[2], std::make_pair(1, 300L));
    EXPECT_EQ(clock.elapsed(), 1100ms);
}

TEST(TestClockTest, CancelledOrDestroyedTimersNeverFire)
{
    TestClock clock;
    int fired = 0;
    auto kept = clock.schedule(10ms, [&] { ++fired; });
    {
        auto dropped = clock.schedule(10ms, [&] { fired += 100; });
    }
    kept.cancel();
    EXPECT_FALSE(kept.isActive());
    clock.advance(1s);
    EXPECT_EQ(fired, 0);

    // Reassigning a handle cancels what it held.
    ClockTimer handle = clock.schedule(10ms, [&] { fired += 1; });
    handle = clock.schedule(20ms, [&] { fired += 10; });
    clock.advance(1s);
    EXPECT_EQ(fired, 10);
}

TEST(TestClockTest, RepeatingTimerKeepsItsPeriodUntilCancelled)
{
    TestClock clock;
    std::vector<long> ticks;
    ClockTimer timer = clock.scheduleRepeating(750ms, [&] { ticks.push_back(clock.elapsed().count()); });
    clock.advance(2300ms);
    EXPECT_EQ(ticks, (std::vector<long>{750, 1500, 2250}));
    timer.cancel();
    clock.advance(10s);
    EXPECT_EQ(ticks.size(), 3u);
}

TEST(TestClockTest, CoroutineSleepsResumeOnVirtualTime)
{
    TestClock clock;
    std::vector<long> log;
    auto task = sleepThenRecord(clock, 180ms, log);
    clock.advance(179ms);
    EXPECT_TRUE(log.empty());
    clock.advance(1ms);
    EXPECT_EQ(log, (std::vector<long>{180}));
    clock.advance(500ms);
    EXPECT_EQ(log, (std::vector<long>{180, 360}));
    EXPECT_TRUE(task.isReady());
}

TEST(TestClockTest, WallTimeFollowsVirtualTime)
{
    TestClock clock;
    const QDateTime start = clock.now();
    clock.advance(std::chrono::hours(25));
    EXPECT_EQ(start.secsTo(clock.now()), 25 * 3600);
}

TEST(EventLoopClockTest, SleepAndRepeatingTimerRunOnTheEventLoop)
{
    EventLoopClock clock;
    std::vector<long> log;
    int ticks = 0;
    ClockTimer repeating = clock.scheduleRepeating(1ms, [&] { ++ticks; });
    auto task = sleepThenRecord(clock, 1ms, log);

    QEventLoop loop;
    QTimer guard;
    guard.setSingleShot(true);
    QObject::connect(&guard, &QTimer::timeout, &loop, &QEventLoop::quit);
    guard.start(5000);
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &loop, [&] {
        if (log.size() == 2 && ticks >= 3) {
            loop.quit();
        }
    });
    poll.start(1);
    loop.exec();

    EXPECT_EQ(log.size(), 2u);
    EXPECT_GE(ticks, 3);
    repeating.cancel();
    const int frozen = ticks;
    QCoreApplication::processEvents();
    EXPECT_EQ(ticks, frozen);
}
