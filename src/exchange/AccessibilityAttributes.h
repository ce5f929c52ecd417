#pragma once

#include "platform/AccessibilityTree.h"

#include <QRectF>

// Typed reads over an accessibility tree. Each reader gives nullopt (or null) when the call fails or the
// value has another type, so a bool read has three outcomes.
class AccessibilityAttributes {
public:
    explicit AccessibilityAttributes(AccessibilityTree& tree) : m_tree(tree) {}

    AccessibilityTree& tree() const { return m_tree; }

    std::optional<QString> stringAttribute(const AccessibilityElement& element, const QString& name) const;
    std::optional<bool> boolAttribute(const AccessibilityElement& element, const QString& name) const;
    std::optional<double> numberAttribute(const AccessibilityElement& element, const QString& name) const;
    AccessibilityElement elementAttribute(const AccessibilityElement& element, const QString& name) const;
    // AXPosition and AXSize together; nullopt when either is missing.
    std::optional<QRectF> frameAttribute(const AccessibilityElement& element) const;
    // AXChildren, keeping only elements.
    QList<AccessibilityElement> children(const AccessibilityElement& element) const;
    // AXRole, empty when unreadable.
    QString role(const AccessibilityElement& element) const;
    bool hasAttributeNamed(const AccessibilityElement& element, const QString& name) const;
    // The focused element of a process's application element, or null.
    AccessibilityElement focusedElement(const AccessibilityElement& application) const;

private:
    template <typename T>
    std::optional<T> typed(const AccessibilityElement& element, const QString& name) const
    {
        const std::optional<AccessibilityValue> value = m_tree.attribute(element, name);
        if (!value || !std::holds_alternative<T>(*value)) {
            return std::nullopt;
        }
        return std::get<T>(*value);
    }

    AccessibilityTree& m_tree;
};
