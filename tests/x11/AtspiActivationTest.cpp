#include "PrivateSessionBus.h"
#include "TestFieldProcess.h"
#include "core/EventLoopClock.h"
#include "exchange/AccessibilityTextReader.h"
#include "exchange/FocusService.h"
#include "platform/x11/AtspiAccessibilityTree.h"
#include "platform/x11/AtspiBusActivation.h"
#include "platform/x11/X11ApplicationWorkspace.h"
#include "platform/x11/X11DisplayConnection.h"
#include "platform/x11/X11EventPump.h"
#include "platform/x11/X11PermissionProbe.h"

#include <gtest/gtest.h>

using namespace std::chrono_literals;

// A desktop whose accessibility is off, as a fresh session without a screen reader is: a Qt application
// started without QT_LINUX_ACCESSIBILITY_ALWAYS_ON keeps its tree to itself until this program turns the
// switch on through the tree, the way the reply paste asks for an application's tree; one started after that
// is read through the exchange's reader. The Accessibility grant follows the switch; Input Monitoring needs
// only the server.
TEST(AtspiActivationTest, TurningAccessibilityOnMakesAQtFieldStartedWithoutTheVariableReadable)
{
    PrivateSessionBus bus;
    ASSERT_TRUE(bus.start()) << bus.failure().constData();
    AtspiAccessibilityTree tree;
    ASSERT_TRUE(tree.isAvailable());
    const AtspiBusActivation activation;
    ASSERT_EQ(activation.isEnabled(), false) << "the launcher must start with accessibility off";
    X11DisplayConnection display;
    X11PermissionProbe permissions(display.get());
    EXPECT_FALSE(permissions.canReadAccessibilityTrees());
    EXPECT_TRUE(permissions.isInputMonitoringGranted());

    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("QT_LINUX_ACCESSIBILITY_ALWAYS_ON"));
    TestFieldProcess before;
    ASSERT_TRUE(before.start(QStringLiteral("MivoraHiddenField"), QStringLiteral("Before"),
                             QStringLiteral("hidden"), environment));
    ASSERT_TRUE(before.waitForFocus());
    EXPECT_FALSE(spinUntil([&] { return bool(tree.applicationElement(before.processIdentifier())); }, 1s))
        << "a Qt application exposed its tree with accessibility off";

    EXPECT_TRUE(tree.setAttribute({}, QStringLiteral("AXManualAccessibility"), true));
    ASSERT_TRUE(spinUntil([&] { return activation.isEnabled() == true; }));
    EXPECT_TRUE(permissions.canReadAccessibilityTrees());

    TestFieldProcess field;
    ASSERT_TRUE(field.start(QStringLiteral("MivoraShownField"), QStringLiteral("After"),
                            QStringLiteral("alpha beta gamma"), environment));
    ASSERT_TRUE(field.waitForFocus());
    ASSERT_TRUE(field.select(6, 4));
    EventLoopClock clock;
    X11EventPump pump(display.get(), clock);
    X11ApplicationWorkspace workspace(pump);
    FocusService focus(workspace, tree);
    AccessibilityTextReader reader(focus, workspace, tree);
    const std::optional<RunningApplication> front = workspace.application(field.processIdentifier());
    ASSERT_TRUE(front);
    focus.remember(*front);
    EXPECT_TRUE(spinUntil([&] { return reader.selectedText() == QStringLiteral("beta"); }, 15s));
}
