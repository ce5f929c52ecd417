#include "PrivateAccessibilityBusTest.h"

#include "exchange/AccessibilityAttributes.h"

void PrivateAccessibilityBusTest::SetUpTestSuite()
{
    // Read by Qt applications at start: the test field and the program itself.
    qputenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1");
    sessionBus = new PrivateSessionBus;
    if (sessionBus->start()) {
        tree = new AtspiAccessibilityTree;
    }
}

void PrivateAccessibilityBusTest::TearDownTestSuite()
{
    delete tree;
    tree = nullptr;
    delete sessionBus;
    sessionBus = nullptr;
}

::testing::AssertionResult PrivateAccessibilityBusTest::busIsReady()
{
    if (tree == nullptr) {
        return ::testing::AssertionFailure()
               << "no private session bus: " << sessionBus->failure().constData();
    }
    if (!tree->isAvailable()) {
        return ::testing::AssertionFailure()
               << "the session bus did not start the accessibility bus launcher";
    }
    return ::testing::AssertionSuccess();
}

std::optional<QString> PrivateAccessibilityBusTest::text(const AccessibilityElement& element,
                                                         const QString& name)
{
    return AccessibilityAttributes(*tree).stringAttribute(element, name);
}
