#pragma once

#include "platform/AccessibilityTree.h"

// The tree where no accessibility service answers: every read is empty, every write refused, so the
// exchange falls back to the clipboard routes.
class UnavailableAccessibilityTree : public AccessibilityTree {
public:
    AccessibilityElement applicationElement(qint32) override { return {}; }
    std::optional<AccessibilityValue> attribute(const AccessibilityElement&, const QString&) override
    {
        return std::nullopt;
    }
    QStringList attributeNames(const AccessibilityElement&) override { return {}; }
    std::optional<bool> isAttributeSettable(const AccessibilityElement&, const QString&) override
    {
        return std::nullopt;
    }
    bool setAttribute(const AccessibilityElement&, const QString&, const AccessibilityValue&) override
    {
        return false;
    }
    QStringList actionNames(const AccessibilityElement&) override { return {}; }
    bool performAction(const AccessibilityElement&, const QString&) override { return false; }
    QList<AccessibilityElement> searchTextFields(const AccessibilityElement&, int) override { return {}; }
    bool isSameElement(const AccessibilityElement&, const AccessibilityElement&) override { return false; }
};
