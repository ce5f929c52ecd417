#pragma once

#include "PrivateSessionBus.h"
#include "platform/x11/AtspiAccessibilityTree.h"

#include <gtest/gtest.h>
#include <optional>

// A suite on a private session bus: the accessibility bus launcher is started on it on demand, and every
// process the suite starts registers there with its accessibility on. AT-SPI keeps one connection per
// process, so the bus is up before the suite's one tree exists. A bus that cannot be started fails every
// test: the test command installs dbus and at-spi2-core, so a missing bus is a broken setup, not a reason to
// skip.
class PrivateAccessibilityBusTest : public ::testing::Test {
protected:
    static void SetUpTestSuite();
    static void TearDownTestSuite();

    // Success when the suite's tree reaches the accessibility bus; otherwise why not.
    static ::testing::AssertionResult busIsReady();
    // A text attribute; nullopt when it cannot be read or is no text.
    static std::optional<QString> text(const AccessibilityElement& element, const QString& name);

    static inline PrivateSessionBus* sessionBus = nullptr;
    static inline AtspiAccessibilityTree* tree = nullptr;
};
