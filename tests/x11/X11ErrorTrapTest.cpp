#include "platform/x11/X11ErrorTrap.h"

#include "platform/x11/X11DisplayConnection.h"

#include <gtest/gtest.h>

// Last: Xlib's macros (None, Bool) break the test framework's headers.
#include <X11/Xlib.h>

namespace {

int errorsSeenByTheProcessHandler = 0;

int countError(Display*, XErrorEvent*)
{
    ++errorsSeenByTheProcessHandler;
    return 0;
}

// A request that fails with BadWindow, for a window nobody created.
void fail(Display* display)
{
    XMapWindow(display, 0x7ffffff);
}

TEST(X11ErrorTrapTest, NestedTrapsEachGetTheErrorsOfTheirOwnScopeAndConnection)
{
    const X11DisplayConnection one;
    const X11DisplayConnection other;
    ASSERT_TRUE(one && other) << "needs an X server";
    const XErrorHandler before = XSetErrorHandler(&countError);
    {
        X11ErrorTrap outer(one.get());
        fail(one.get());
        {
            // Starting the inner trap settles the outer one's pending error first.
            X11ErrorTrap inner(one.get());
            EXPECT_EQ(inner.sync(), 0);
            X11ErrorTrap elsewhere(other.get());
            fail(other.get());
            EXPECT_EQ(elsewhere.sync(), BadWindow);
            fail(one.get());
            EXPECT_EQ(inner.sync(), BadWindow);
        }
        EXPECT_EQ(outer.sync(), BadWindow);
    }
    EXPECT_EQ(errorsSeenByTheProcessHandler, 0);
    // With the last trap gone, errors reach the handler that was there before.
    fail(one.get());
    XSync(one.get(), False);
    EXPECT_EQ(errorsSeenByTheProcessHandler, 1);
    XSetErrorHandler(before);
}

} // namespace
