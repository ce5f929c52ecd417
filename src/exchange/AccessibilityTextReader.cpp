#include "exchange/AccessibilityTextReader.h"

#include "exchange/FocusService.h"

namespace {
const QString axSelectedText = QStringLiteral("AXSelectedText");
}

AccessibilityTextReader::AccessibilityTextReader(FocusService& focus, ApplicationWorkspace& workspace,
                                                 AccessibilityTree& tree)
    : m_focus(focus), m_workspace(workspace), m_attributes(tree)
{}

AccessibilityElement AccessibilityTextReader::focusedElementOfRememberedBundle()
{
    const std::optional<QString>& bundleIdentifier = m_focus.rememberedBundleIdentifier();
    if (!bundleIdentifier) {
        return {};
    }
    const std::optional<RunningApplication> application = m_workspace.application(*bundleIdentifier);
    if (!application) {
        return {};
    }
    return m_attributes.focusedElement(
        m_attributes.tree().applicationElement(application->processIdentifier));
}

QString AccessibilityTextReader::selectedText()
{
    const AccessibilityElement element = focusedElementOfRememberedBundle();
    return element ? stringAttribute(element, axSelectedText).value_or(QString()) : QString();
}

QString AccessibilityTextReader::selectedTextForLayout()
{
    const AccessibilityElement element = focusedElement();
    if (element.isNull() || requiresPasteFallback(element)) {
        return {};
    }
    return stringAttribute(element, axSelectedText).value_or(QString());
}

QString AccessibilityTextReader::focusedText()
{
    const AccessibilityElement element = focusedElementOfRememberedBundle();
    if (element.isNull()) {
        return {};
    }
    if (const std::optional<QString> selected = stringAttribute(element, axSelectedText)) {
        return *selected;
    }
    return stringAttribute(element, QStringLiteral("AXValue")).value_or(QString());
}

AccessibilityElement AccessibilityTextReader::focusedElement()
{
    const std::optional<qint32> processIdentifier = m_focus.rememberedProcessIdentifier();
    if (!processIdentifier) {
        return {};
    }
    return m_attributes.focusedElement(m_attributes.tree().applicationElement(*processIdentifier));
}

bool AccessibilityTextReader::requiresPasteFallback(const AccessibilityElement& element)
{
    AccessibilityElement current = element;
    for (int step = 0; step < pasteFallbackAncestorLimit && current; ++step) {
        if (m_attributes.hasAttributeNamed(current, QStringLiteral("ChromeAXNodeId")) ||
            m_attributes.role(current) == u"AXWebArea") {
            return true;
        }
        current = m_attributes.elementAttribute(current, QStringLiteral("AXParent"));
    }
    return false;
}

std::optional<QString> AccessibilityTextReader::stringAttribute(const AccessibilityElement& element,
                                                                const QString& name)
{
    return m_attributes.stringAttribute(element, name);
}

std::optional<double> AccessibilityTextReader::numberAttribute(const AccessibilityElement& element,
                                                               const QString& name)
{
    return m_attributes.numberAttribute(element, name);
}

bool AccessibilityTextReader::replaceSelectedText(const QString& text)
{
    const AccessibilityElement element = focusedElementOfRememberedBundle();
    if (element.isNull() || requiresPasteFallback(element)) {
        return false;
    }
    AccessibilityTree& tree = m_attributes.tree();
    if (tree.isAttributeSettable(element, axSelectedText) != true) {
        return false;
    }
    return tree.setAttribute(element, axSelectedText, text);
}
