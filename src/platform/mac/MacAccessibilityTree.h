#pragma once

#include "platform/AccessibilityTree.h"

#include <chrono>

// Other applications' trees through the macOS Accessibility API, attribute names passed through as they
// are. Each call to another application gives up after callTimeout. GUI thread only.
class MacAccessibilityTree : public AccessibilityTree {
public:
    static constexpr std::chrono::milliseconds defaultCallTimeout{500};

    explicit MacAccessibilityTree(std::chrono::milliseconds callTimeout = defaultCallTimeout);

    AccessibilityElement applicationElement(qint32 processIdentifier) override;
    std::optional<AccessibilityValue> attribute(const AccessibilityElement& element,
                                                const QString& name) override;
    QStringList attributeNames(const AccessibilityElement& element) override;
    std::optional<bool> isAttributeSettable(const AccessibilityElement& element,
                                            const QString& name) override;
    bool setAttribute(const AccessibilityElement& element, const QString& name,
                      const AccessibilityValue& value) override;
    QStringList actionNames(const AccessibilityElement& element) override;
    bool performAction(const AccessibilityElement& element, const QString& name) override;
    // The application's own search for visible text fields ("AXUIElementsForSearchPredicate").
    QList<AccessibilityElement> searchTextFields(const AccessibilityElement& element, int limit) override;
    bool isSameElement(const AccessibilityElement& first, const AccessibilityElement& second) override;
};
