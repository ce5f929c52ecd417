#include "FakeAccessibilityTree.h"

#include <QRectF>

AccessibilityElement FakeAccessibilityTree::make(const QString& role)
{
    m_nodes.push_back(std::make_unique<Node>());
    m_nodes.back()->attributes.insert(QStringLiteral("AXRole"), role);
    // Aliasing an empty owner: the element points at the node without sharing its ownership.
    return AccessibilityElement(std::shared_ptr<void>(std::shared_ptr<void>(), m_nodes.back().get()));
}

AccessibilityElement FakeAccessibilityTree::addApplication(qint32 processIdentifier)
{
    const AccessibilityElement element = make(QStringLiteral("AXApplication"));
    node(element).settable << QStringLiteral("AXFocusedWindow") << QStringLiteral("AXManualAccessibility");
    m_applications.insert(processIdentifier, element);
    return element;
}

AccessibilityElement FakeAccessibilityTree::add(const AccessibilityElement& parent, const QString& role)
{
    const AccessibilityElement element = make(role);
    if (parent) {
        node(element).parent = parent;
        node(parent).children.append(element);
    }
    return element;
}

AccessibilityElement FakeAccessibilityTree::addEditor(const AccessibilityElement& parent, const QString& role,
                                                      const QRectF& frame, const QString& value)
{
    const AccessibilityElement element = add(parent, role);
    node(element).settable << QStringLiteral("AXFocused") << QStringLiteral("AXSelectedText");
    set(element, QStringLiteral("AXValue"), value);
    setFrame(element, frame);
    return element;
}

void FakeAccessibilityTree::set(const AccessibilityElement& element, const QString& name,
                                AccessibilityValue value)
{
    node(element).attributes.insert(name, std::move(value));
}

void FakeAccessibilityTree::setFrame(const AccessibilityElement& element, const QRectF& frame)
{
    set(element, QStringLiteral("AXPosition"), frame.topLeft());
    set(element, QStringLiteral("AXSize"), frame.size());
}

void FakeAccessibilityTree::setSearchResults(const AccessibilityElement& element,
                                             QList<AccessibilityElement> results)
{
    m_searchResults.append({element, std::move(results)});
}

AccessibilityElement FakeAccessibilityTree::applicationElement(qint32 processIdentifier)
{
    return m_applications.value(processIdentifier);
}

std::optional<AccessibilityValue> FakeAccessibilityTree::attribute(const AccessibilityElement& element,
                                                                   const QString& name)
{
    if (element.isNull()) {
        return std::nullopt;
    }
    Node& n = node(element);
    if (name == u"AXChildren") {
        ++m_childrenReads;
        return n.children;
    }
    if (name == u"AXParent") {
        return n.parent ? std::optional<AccessibilityValue>(n.parent) : std::nullopt;
    }
    const auto it = n.attributes.constFind(name);
    return it == n.attributes.cend() ? std::nullopt : std::optional<AccessibilityValue>(*it);
}

QStringList FakeAccessibilityTree::attributeNames(const AccessibilityElement& element)
{
    if (element.isNull()) {
        return {};
    }
    QStringList names = node(element).attributes.keys();
    names << node(element).extraNames << QStringLiteral("AXChildren");
    return names;
}

std::optional<bool> FakeAccessibilityTree::isAttributeSettable(const AccessibilityElement& element,
                                                               const QString& name)
{
    if (element.isNull()) {
        return std::nullopt;
    }
    return node(element).settable.contains(name);
}

bool FakeAccessibilityTree::setAttribute(const AccessibilityElement& element, const QString& name,
                                         const AccessibilityValue& value)
{
    m_setCalls.append({name, value});
    if (element.isNull() || !node(element).settable.contains(name)) {
        return false;
    }
    Node& n = node(element);
    if (name == u"AXFocused") {
        if (!n.ignoresFocus && !n.focusesOnPress) {
            takeFocus(element);
        }
        return true;
    }
    n.attributes.insert(name, value);
    return true;
}

QStringList FakeAccessibilityTree::actionNames(const AccessibilityElement& element)
{
    return element ? node(element).actions : QStringList();
}

bool FakeAccessibilityTree::performAction(const AccessibilityElement& element, const QString& name)
{
    m_performed.append(name);
    if (element.isNull() || !node(element).actions.contains(name)) {
        return false;
    }
    if (name == u"AXPress" && node(element).focusesOnPress) {
        takeFocus(element);
    }
    return true;
}

QList<AccessibilityElement> FakeAccessibilityTree::searchTextFields(const AccessibilityElement& element,
                                                                    int limit)
{
    for (const auto& [area, results] : m_searchResults) {
        if (area == element) {
            return results.mid(0, limit);
        }
    }
    return {};
}

bool FakeAccessibilityTree::isSameElement(const AccessibilityElement& first,
                                          const AccessibilityElement& second)
{
    return first && first == second;
}

AccessibilityElement FakeAccessibilityTree::root(const AccessibilityElement& element)
{
    AccessibilityElement current = element;
    while (node(current).parent) {
        current = node(current).parent;
    }
    return current;
}

void FakeAccessibilityTree::takeFocus(const AccessibilityElement& element)
{
    node(element).attributes.insert(QStringLiteral("AXFocused"), true);
    node(root(element)).attributes.insert(QStringLiteral("AXFocusedUIElement"), element);
}
