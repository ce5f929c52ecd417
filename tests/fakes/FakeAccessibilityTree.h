#pragma once

#include "platform/AccessibilityTree.h"

#include <QHash>
#include <QMap>
#include <QRectF>
#include <QSet>
#include <memory>
#include <vector>

// An in-memory accessibility tree. Nodes keep their attributes in a map; AXParent and AXChildren come from
// the structure. The tree owns every node; the elements it hands out (and the links between nodes) only
// refer to them, so parents, children and focused elements form no ownership cycle, and an element must
// not be used after its tree is gone. Setting AXFocused on a node that accepts it makes it the focused
// element of its application (the root above it). Reads are counted so tests can check the bounds of the
// walks.
class FakeAccessibilityTree : public AccessibilityTree {
public:
    struct Node {
        QMap<QString, AccessibilityValue> attributes;
        // Names beyond the attribute map that attributeNames() lists (markers without a value).
        QStringList extraNames;
        QSet<QString> settable;
        QStringList actions;
        AccessibilityElement parent;
        QList<AccessibilityElement> children;
        // Accepts AXFocused but does not actually take the focus.
        bool ignoresFocus = false;
        // Takes the focus only when pressed.
        bool focusesOnPress = false;
    };

    // An application root with the given process.
    AccessibilityElement addApplication(qint32 processIdentifier);
    // A node under parent (appended to its children) with the role.
    AccessibilityElement add(const AccessibilityElement& parent, const QString& role);
    // A text field or area that is enabled and accepts the focus, with a frame.
    AccessibilityElement addEditor(const AccessibilityElement& parent, const QString& role,
                                   const QRectF& frame, const QString& value = {});
    Node& node(const AccessibilityElement& element) { return *element.handle<Node>(); }
    void set(const AccessibilityElement& element, const QString& name, AccessibilityValue value);
    void setFrame(const AccessibilityElement& element, const QRectF& frame);
    void setSearchResults(const AccessibilityElement& element, QList<AccessibilityElement> results);

    int childrenReads() const { return m_childrenReads; }
    QStringList performedActions() const { return m_performed; }
    QList<std::pair<QString, AccessibilityValue>> setCalls() const { return m_setCalls; }

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
    QList<AccessibilityElement> searchTextFields(const AccessibilityElement& element, int limit) override;
    bool isSameElement(const AccessibilityElement& first, const AccessibilityElement& second) override;

private:
    AccessibilityElement make(const QString& role);
    AccessibilityElement root(const AccessibilityElement& element);
    void takeFocus(const AccessibilityElement& element);

    std::vector<std::unique_ptr<Node>> m_nodes;
    QHash<qint32, AccessibilityElement> m_applications;
    QList<std::pair<AccessibilityElement, QList<AccessibilityElement>>> m_searchResults;
    QList<std::pair<QString, AccessibilityValue>> m_setCalls;
    QStringList m_performed;
    int m_childrenReads = 0;
};
