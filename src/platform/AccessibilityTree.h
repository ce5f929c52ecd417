#pragma once

#include "platform/AccessibilityElement.h"

#include <QList>
#include <QPointF>
#include <QSizeF>
#include <QString>
#include <QStringList>
#include <optional>
#include <variant>

// An attribute value: text, truth value, number, screen position or size (origin at the top left of the
// primary screen, y down), one element, or a list of elements.
using AccessibilityValue =
    std::variant<QString, bool, double, QPointF, QSizeF, AccessibilityElement, QList<AccessibilityElement>>;

// Other applications' accessibility trees, addressed with the attribute names of the macOS interface
// ("AXRole", "AXFocusedUIElement", "AXSelectedText"...). Every call may block on the other application for a
// bounded time; all are for the GUI thread. Failures give nullopt, empty or false, never an exception.
class AccessibilityTree {
public:
    virtual ~AccessibilityTree() = default;

    // The root element of a process's tree; null when the process is unknown.
    virtual AccessibilityElement applicationElement(qint32 processIdentifier) = 0;
    // The value of one attribute, or nullopt when the element does not have it or the call fails.
    virtual std::optional<AccessibilityValue> attribute(const AccessibilityElement& element,
                                                        const QString& name) = 0;
    // The names of the attributes the element has; empty on failure.
    virtual QStringList attributeNames(const AccessibilityElement& element) = 0;
    // Whether the attribute may be set; nullopt when the call fails.
    virtual std::optional<bool> isAttributeSettable(const AccessibilityElement& element,
                                                    const QString& name) = 0;
    // Sets the attribute; false when the call fails.
    virtual bool setAttribute(const AccessibilityElement& element, const QString& name,
                              const AccessibilityValue& value) = 0;
    // The names of the actions the element offers ("AXPress", "AXRaise"); empty on failure.
    virtual QStringList actionNames(const AccessibilityElement& element) = 0;
    // Performs an action; false when the call fails.
    virtual bool performAction(const AccessibilityElement& element, const QString& name) = 0;
    // The visible text fields in the subtree of the element, in document order, at most limit; empty on
    // failure or where the tree offers no such search.
    virtual QList<AccessibilityElement> searchTextFields(const AccessibilityElement& element, int limit) = 0;
    // Whether two references name the same element.
    virtual bool isSameElement(const AccessibilityElement& first, const AccessibilityElement& second) = 0;
};
