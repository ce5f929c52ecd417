#include "platform/x11/X11EventPump.h"

#include "AwaitTask.h"
#include "EventLoopWait.h"
#include "TestClock.h"
#include "platform/x11/X11DisplayConnection.h"

#include <gtest/gtest.h>

// Last: Xlib's macros (None, Bool) break the test framework's headers.
#include <X11/Xatom.h>
#include <X11/Xlib.h>

using namespace std::chrono_literals;

namespace {

// Property changes on a window of the pump's own connection: events that arrive when the server says so.
class X11EventPumpTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(display) << "needs an X server";
        XSetWindowAttributes attributes{};
        attributes.event_mask = PropertyChangeMask;
        window = XCreateWindow(display.get(), DefaultRootWindow(display.get()), 0, 0, 1, 1, 0, CopyFromParent,
                               InputOnly, CopyFromParent, CWEventMask, &attributes);
        first = XInternAtom(display.get(), "MIVORA_PUMP_TEST_FIRST", False);
        second = XInternAtom(display.get(), "MIVORA_PUMP_TEST_SECOND", False);
    }
    void TearDown() override { XDestroyWindow(display.get(), window); }

    void change(Atom property)
    {
        const long value = 1;
        XChangeProperty(display.get(), window, property, XA_INTEGER, 32, PropModeReplace,
                        reinterpret_cast<const unsigned char*>(&value), 1);
        XFlush(display.get());
    }
    // The properties of this window that a listener heard change, in order.
    X11EventPump::Subscription record(QList<Atom>& heard)
    {
        return pump.subscribe([this, &heard](const XEvent& event) {
            if (event.type == PropertyNotify && event.xproperty.window == window) {
                heard.append(event.xproperty.atom);
            }
        });
    }
    QCoro::Task<bool> waitForChange(Atom property, XEvent* received)
    {
        const Window target = window;
        co_return co_await pump.waitFor(
            [=](const XEvent& event) {
                return event.type == PropertyNotify && event.xproperty.window == target &&
                       event.xproperty.atom == property;
            },
            1000ms, received);
    }

    X11DisplayConnection display;
    TestClock clock;
    X11EventPump pump{display.get(), clock};
    Window window = 0;
    Atom first = 0;
    Atom second = 0;
};

TEST_F(X11EventPumpTest, EveryListenerHearsEveryEventInOrderUntilItLetsGo)
{
    QList<Atom> heardByOne;
    QList<Atom> heardByTwo;
    const X11EventPump::Subscription one = record(heardByOne);
    X11EventPump::Subscription two = record(heardByTwo);
    // A listener that lets go of itself on its first event.
    int heardOnce = 0;
    X11EventPump::Subscription once;
    once = pump.subscribe([&](const XEvent&) {
        ++heardOnce;
        once.reset();
    });

    change(first);
    change(second);
    ASSERT_TRUE(spinUntil([&] { return heardByTwo.size() == 2; }));
    EXPECT_EQ(heardByOne, (QList<Atom>{first, second}));
    EXPECT_EQ(heardOnce, 1);

    two.reset();
    change(first);
    ASSERT_TRUE(spinUntil([&] { return heardByOne.size() == 3; }));
    EXPECT_EQ(heardByTwo.size(), 2);
}

TEST_F(X11EventPumpTest, AWaiterTakesItsEventOrGivesUpOnTheClock)
{
    QList<Atom> heard;
    const X11EventPump::Subscription listening = record(heard);

    // The awaited change goes to the waiter alone; the others still reach listeners.
    XEvent received{};
    QCoro::Task<bool> waiting = waitForChange(second, &received);
    EXPECT_FALSE(waiting.isReady());
    change(first);
    change(second);
    EXPECT_TRUE(AwaitTask::run(std::move(waiting)));
    EXPECT_EQ(received.xproperty.atom, second);
    ASSERT_TRUE(spinUntil([&] { return heard.size() == 1; }));
    EXPECT_EQ(heard, QList<Atom>{first});

    // An event already in Xlib's queue, read there by a round trip, is taken without suspending.
    change(first);
    XSync(display.get(), False);
    EXPECT_TRUE(waitForChange(first, nullptr).isReady());

    // No event: the wait ends exactly at its time-out on the pump's clock, however long the loop runs.
    QCoro::Task<bool> unanswered = waitForChange(second, nullptr);
    EXPECT_FALSE(spinUntil([&] { return unanswered.isReady(); }, 100ms));
    clock.advance(999ms);
    EXPECT_FALSE(unanswered.isReady());
    clock.advance(1ms);
    ASSERT_TRUE(unanswered.isReady());
    EXPECT_FALSE(AwaitTask::run(std::move(unanswered)));
}

TEST_F(X11EventPumpTest, APumpWithoutAServerEndsEveryWaitAtOnce)
{
    X11EventPump nowhere(nullptr, clock);
    const auto wait = [&]() -> QCoro::Task<bool> {
        co_return co_await nowhere.waitFor([](const XEvent&) { return true; }, 1000ms);
    };
    QCoro::Task<bool> task = wait();
    ASSERT_TRUE(task.isReady());
    EXPECT_FALSE(AwaitTask::run(std::move(task)));
}

} // namespace
