#include "exchange/AccessibilityAttributes.h"

std::optional<QString> AccessibilityAttributes::stringAttribute(const AccessibilityElement& element,
                                                                const QString& name) const
{
    return typed<QString>(element, name);
}

std::optional<bool> AccessibilityAttributes::boolAttribute(const AccessibilityElement& element,
                                                           const QString& name) const
{
    return typed<bool>(element, name);
}

std::optional<double> AccessibilityAttributes::numberAttribute(const AccessibilityElement& element,
                                                               const QString& name) const
{
    return typed<double>(element, name);
}

AccessibilityElement AccessibilityAttributes::elementAttribute(const AccessibilityElement& element,
                                                               const QString& name) const
{
    return typed<AccessibilityElement>(element, name).value_or(AccessibilityElement());
}

std::optional<QRectF> AccessibilityAttributes::frameAttribute(const AccessibilityElement& element) const
{
    const std::optional<QPointF> position = typed<QPointF>(element, QStringLiteral("AXPosition"));
    if (!position) {
        return std::nullopt;
    }
    const std::optional<QSizeF> size = typed<QSizeF>(element, QStringLiteral("AXSize"));
    if (!size) {
        return std::nullopt;
    }
    return QRectF(*position, *size);
}

QList<AccessibilityElement> AccessibilityAttributes::children(const AccessibilityElement& element) const
{
    QList<AccessibilityElement> result;
    for (const AccessibilityElement& child :
         typed<QList<AccessibilityElement>>(element, QStringLiteral("AXChildren"))
             .value_or(QList<AccessibilityElement>())) {
        if (!child.isNull()) {
            result.append(child);
        }
    }
    return result;
}

QString AccessibilityAttributes::role(const AccessibilityElement& element) const
{
    return stringAttribute(element, QStringLiteral("AXRole")).value_or(QString());
}

bool AccessibilityAttributes::hasAttributeNamed(const AccessibilityElement& element,
                                                const QString& name) const
{
    return m_tree.attributeNames(element).contains(name);
}

AccessibilityElement AccessibilityAttributes::focusedElement(const AccessibilityElement& application) const
{
    if (application.isNull()) {
        return {};
    }
    return elementAttribute(application, QStringLiteral("AXFocusedUIElement"));
}
