#include "core/EventLoopClock.h"
#include "exchange/AccessibilityTextReader.h"
#include "exchange/FocusService.h"
#include "platform/x11/AtspiAccessibilityTree.h"
#include "platform/x11/X11ApplicationWorkspace.h"
#include "platform/x11/X11DisplayConnection.h"
#include "platform/x11/X11EventPump.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <unistd.h>

// Last: Xlib's macros (None, Bool) break the test framework's headers.
#include <X11/Xlib.h>

// No session bus, and no accessibility bus announced on the display: the tree answers every question with
// nothing, at once, and the reader above it gives empty texts.
TEST(AtspiWithoutBusTest, EveryReadIsEmptyAndEveryWriteRefused)
{
    const QTemporaryDir runtime;
    qputenv("DBUS_SESSION_BUS_ADDRESS", ("unix:path=" + runtime.path() + "/no-bus").toUtf8());
    qunsetenv("AT_SPI_BUS_ADDRESS");
    const X11DisplayConnection display;
    ASSERT_TRUE(display) << "needs an X server";
    XDeleteProperty(display.get(), DefaultRootWindow(display.get()),
                    XInternAtom(display.get(), "AT_SPI_BUS", False));
    XSync(display.get(), False);

    AtspiAccessibilityTree tree;
    EXPECT_FALSE(tree.isAvailable());
    EXPECT_FALSE(tree.applicationElement(qint32(getpid())));
    const AccessibilityElement nothing;
    EXPECT_FALSE(tree.attribute(nothing, QStringLiteral("AXFocusedUIElement")));
    EXPECT_TRUE(tree.attributeNames(nothing).isEmpty());
    EXPECT_FALSE(tree.isAttributeSettable(nothing, QStringLiteral("AXSelectedText")));
    EXPECT_FALSE(tree.setAttribute(nothing, QStringLiteral("AXSelectedText"), QStringLiteral("text")));
    EXPECT_FALSE(tree.performAction(nothing, QStringLiteral("AXPress")));

    EventLoopClock clock;
    X11EventPump pump(display.get(), clock);
    X11ApplicationWorkspace workspace(pump);
    FocusService focus(workspace, tree);
    AccessibilityTextReader reader(focus, workspace, tree);
    focus.remember({qint32(getppid()), QStringLiteral("SomeEditor"), QStringLiteral("Some editor"), true});
    EXPECT_EQ(reader.selectedText(), QString());
    EXPECT_EQ(reader.focusedText(), QString());
    EXPECT_FALSE(reader.replaceSelectedText(QStringLiteral("text")));
}
