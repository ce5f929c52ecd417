#include "core/StatusService.h"

#include "TestClock.h"

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {

class StatusServiceTest : public ::testing::Test {
protected:
    TestClock clock;
    StatusService service{clock};
};

TEST_F(StatusServiceTest, DoneAndFailedReturnToIdleExactlyAfterTheirDelays)
{
    service.publish(ActionStatus::done("ok"));
    clock.advance(899ms);
    EXPECT_EQ(service.status(), ActionStatus::done("ok"));
    clock.advance(1ms);
    EXPECT_EQ(service.status(), ActionStatus::idle());

    service.publish(ActionStatus::failed("bad"));
    clock.advance(1299ms);
    EXPECT_EQ(service.status().kind, ActionStatus::Kind::failed);
    clock.advance(1ms);
    EXPECT_EQ(service.status(), ActionStatus::idle());
    EXPECT_EQ(clock.pendingCount(), 0u);
}

TEST_F(StatusServiceTest, EveryPublishDropsThePendingReset)
{
    // Two equal "done" statuses half a second apart: the reset counts from the second.
    service.publish(ActionStatus::done("same"));
    clock.advance(500ms);
    service.publish(ActionStatus::done("same"));
    clock.advance(899ms);
    EXPECT_EQ(service.status(), ActionStatus::done("same"));
    clock.advance(1ms);
    EXPECT_EQ(service.status(), ActionStatus::idle());

    // A running status published after a done one is never reset.
    service.publish(ActionStatus::done("x"));
    service.publish(ActionStatus::running("busy"));
    clock.advance(10s);
    EXPECT_EQ(service.status(), ActionStatus::running("busy"));
}

} // namespace
