#include "exchange/FocusService.h"

#include "exchange/OwnApplication.h"

#include <QQueue>
#include <limits>

namespace {
const QString chromeNodeId = QStringLiteral("ChromeAXNodeId");
const QString axRole = QStringLiteral("AXRole");
const QString axFocused = QStringLiteral("AXFocused");
const QString axParent = QStringLiteral("AXParent");
const QString axWebArea = QStringLiteral("AXWebArea");

// Breadth-first over children, visiting at most limit elements. visit says whether to walk an element's
// children.
template <typename Visit>
void walkBreadthFirst(const AccessibilityAttributes& attributes, const AccessibilityElement& root, int limit,
                      Visit visit)
{
    QQueue<AccessibilityElement> queue;
    queue.enqueue(root);
    int visited = 0;
    while (!queue.isEmpty() && visited < limit) {
        const AccessibilityElement element = queue.dequeue();
        ++visited;
        if (visit(element)) {
            for (const AccessibilityElement& child : attributes.children(element)) {
                queue.enqueue(child);
            }
        }
    }
}
} // namespace

FocusService::FocusService(ApplicationWorkspace& workspace, AccessibilityTree& tree)
    : m_workspace(workspace), m_attributes(tree),
      m_activations(m_workspace.subscribeToWindowActivations(
          [this](const RunningApplication& application) { remember(application); }))
{}

std::optional<RunningApplication> FocusService::runningApplication(qint32 processIdentifier)
{
    return m_workspace.application(processIdentifier);
}

void FocusService::remember(const RunningApplication& application)
{
    if (application.bundleIdentifier.isEmpty() ||
        OwnApplication::isOwn(application, m_workspace.currentProcessIdentifier())) {
        return;
    }
    if (m_restoringProcessIdentifier == application.processIdentifier) {
        return;
    }
    m_rememberedBundleIdentifier = application.bundleIdentifier;
    m_rememberedProcessIdentifier = application.processIdentifier;
    m_rememberedDesktopWindow = m_workspace.lastActiveWindow(application.processIdentifier);
    m_rememberedWindow =
        m_attributes.elementAttribute(m_attributes.tree().applicationElement(application.processIdentifier),
                                      QStringLiteral("AXFocusedWindow"));
}

bool FocusService::activate(const QString& bundleIdentifier)
{
    const std::optional<RunningApplication> application = m_workspace.application(bundleIdentifier);
    if (!application) {
        return false;
    }
    return application->isActive || activate(application->processIdentifier);
}

bool FocusService::activate(qint32 processIdentifier)
{
    const bool remembered = m_rememberedProcessIdentifier == processIdentifier;
    return m_workspace.activate(processIdentifier, remembered ? m_rememberedDesktopWindow : 0);
}

bool FocusService::beginAIReplyPaste(qint32 processIdentifier)
{
    m_restoringProcessIdentifier = processIdentifier;
    m_replyEditor = {};
    if (const std::optional<RunningApplication> application = runningApplication(processIdentifier)) {
        AccessibilityTree& tree = m_attributes.tree();
        tree.setAttribute(tree.applicationElement(processIdentifier), QStringLiteral("AXManualAccessibility"),
                          true);
        if (application->isActive || activate(processIdentifier)) {
            return true;
        }
    }
    endAIReplyPaste();
    return false;
}

void FocusService::endAIReplyPaste()
{
    m_restoringProcessIdentifier.reset();
    m_replyEditor = {};
}

bool FocusService::focusAIReplyEditor(qint32 processIdentifier)
{
    if (m_rememberedProcessIdentifier != processIdentifier || m_rememberedWindow.isNull()) {
        return false;
    }
    AccessibilityTree& tree = m_attributes.tree();
    const AccessibilityElement application = tree.applicationElement(processIdentifier);
    // Some toolkits build their tree only once asked for it; the results of these calls tell nothing.
    m_attributes.role(application);
    tree.setAttribute(application, QStringLiteral("AXManualAccessibility"), true);
    tree.setAttribute(application, QStringLiteral("AXFocusedWindow"), m_rememberedWindow);
    tree.performAction(m_rememberedWindow, QStringLiteral("AXRaise"));

    AccessibilityElement candidate;
    if (const AccessibilityElement focused = m_attributes.focusedElement(application)) {
        candidate = editableAncestor(focused);
        if (candidate && isInsideWebContent(candidate) && focusAsReplyEditor(candidate, application)) {
            return true;
        }
    }

    const QList<AccessibilityElement> all = editableElements(m_rememberedWindow);
    QList<AccessibilityElement> web;
    for (const AccessibilityElement& element : all) {
        if (isInsideWebContent(element)) {
            web.append(element);
        }
    }
    if (!web.isEmpty() && focusAsReplyEditor(preferredElement(web), application)) {
        return true;
    }
    if (candidate) {
        return focusAsReplyEditor(candidate, application);
    }
    if (all.isEmpty()) {
        return false;
    }
    return focusAsReplyEditor(preferredElement(all), application);
}

bool FocusService::focusAsReplyEditor(const AccessibilityElement& element,
                                      const AccessibilityElement& application)
{
    if (!focus(element, application)) {
        return false;
    }
    m_replyEditor = element;
    return true;
}

AccessibilityElement FocusService::preferredElement(const QList<AccessibilityElement>& elements)
{
    for (const AccessibilityElement& element : elements) {
        if (m_attributes.boolAttribute(element, axFocused) == true) {
            return element;
        }
    }
    AccessibilityElement best;
    double bestScore = 0;
    for (const AccessibilityElement& element : elements) {
        const double elementScore = score(element);
        // Ties go to the earlier element.
        if (best.isNull() || elementScore > bestScore) {
            best = element;
            bestScore = elementScore;
        }
    }
    return best;
}

double FocusService::score(const AccessibilityElement& element)
{
    const std::optional<QRectF> frame = m_attributes.frameAttribute(element);
    if (!frame) {
        return std::numeric_limits<double>::lowest();
    }
    double result = 10 * frame->bottom() + std::min(frame->width(), 1000.0);
    if (m_attributes.role(element) == u"AXTextArea") {
        result += 500;
    }
    if (m_attributes.stringAttribute(element, QStringLiteral("AXValue")).value_or(QString()).isEmpty()) {
        result += 1000;
    }
    return result;
}

QList<AccessibilityElement> FocusService::editableElements(const AccessibilityElement& window)
{
    QList<AccessibilityElement> found;
    for (const AccessibilityElement& area : webAreas(window)) {
        found.append(searchEditableElements(area));
    }
    QList<AccessibilityElement> result;
    if (!found.isEmpty()) {
        for (const AccessibilityElement& element : found) {
            if (isEditableElement(element, m_attributes.role(element)) && passesSizeFilter(element)) {
                result.append(element);
            }
        }
        return result;
    }
    walkBreadthFirst(m_attributes, window, fullWalkLimit, [&](const AccessibilityElement& element) {
        if (isEditableElement(element, m_attributes.role(element)) && passesSizeFilter(element)) {
            result.append(element);
        }
        return true;
    });
    return result;
}

bool FocusService::passesSizeFilter(const AccessibilityElement& element)
{
    const std::optional<QRectF> frame = m_attributes.frameAttribute(element);
    return !frame || (frame->width() >= 40 && frame->height() >= 14);
}

QList<AccessibilityElement> FocusService::webAreas(const AccessibilityElement& root)
{
    QList<AccessibilityElement> areas;
    walkBreadthFirst(m_attributes, root, webAreaWalkLimit, [&](const AccessibilityElement& element) {
        if (m_attributes.role(element) == axWebArea) {
            areas.append(element);
            return false;
        }
        return true;
    });
    return areas;
}

QList<AccessibilityElement> FocusService::searchEditableElements(const AccessibilityElement& webArea)
{
    QList<AccessibilityElement> result;
    for (const AccessibilityElement& element :
         m_attributes.tree().searchTextFields(webArea, searchResultsLimit)) {
        if (!element.isNull()) {
            result.append(element);
        }
    }
    return result;
}

bool FocusService::isEditableElement(const AccessibilityElement& element, const QString& role)
{
    static const QStringList fieldRoles{QStringLiteral("AXTextField"), QStringLiteral("AXTextArea"),
                                        QStringLiteral("AXComboBox")};
    static const QStringList groupRoles{QStringLiteral("AXGroup"), QStringLiteral("AXGenericElement")};
    if (groupRoles.contains(role)) {
        const QStringList names = m_attributes.tree().attributeNames(element);
        const bool editable = m_attributes.boolAttribute(element, QStringLiteral("AXIsEditable")) == true ||
                              names.contains(QStringLiteral("AXEditableAncestor")) ||
                              names.contains(QStringLiteral("AXHighestEditableAncestor"));
        if (!editable || !names.contains(QStringLiteral("AXSelectedText"))) {
            return false;
        }
    } else if (!fieldRoles.contains(role)) {
        return false;
    }
    return m_attributes.boolAttribute(element, QStringLiteral("AXEnabled")) != false &&
           m_attributes.tree().isAttributeSettable(element, axFocused) == true;
}

AccessibilityElement FocusService::editableAncestor(const AccessibilityElement& start)
{
    AccessibilityElement element = start;
    for (int step = 0; step < editableAncestorLimit && element; ++step) {
        if (isEditableElement(element, m_attributes.role(element))) {
            return element;
        }
        element = m_attributes.elementAttribute(element, axParent);
    }
    return {};
}

bool FocusService::isInsideWebContent(const AccessibilityElement& element)
{
    bool sawChromeNode = false;
    AccessibilityElement current = element;
    for (int step = 0; step < webContentAncestorLimit && current; ++step) {
        const QString role = m_attributes.role(current);
        // The address bar of a browser is no message box, whatever lies around it.
        if (role == u"AXToolbar") {
            return false;
        }
        if (role == axWebArea) {
            return true;
        }
        sawChromeNode = sawChromeNode || m_attributes.hasAttributeNamed(current, chromeNodeId);
        current = m_attributes.elementAttribute(current, axParent);
    }
    return sawChromeNode;
}

bool FocusService::focus(const AccessibilityElement& element, const AccessibilityElement& application)
{
    AccessibilityTree& tree = m_attributes.tree();
    if (!tree.setAttribute(element, axFocused, true)) {
        return false;
    }
    if (isActuallyFocused(element, application)) {
        return true;
    }
    if (tree.actionNames(element).contains(QStringLiteral("AXPress"))) {
        tree.performAction(element, QStringLiteral("AXPress"));
    }
    return isActuallyFocused(element, application);
}

bool FocusService::isActuallyFocused(const AccessibilityElement& element,
                                     const AccessibilityElement& application)
{
    const AccessibilityElement focused = m_attributes.focusedElement(application);
    if (focused.isNull()) {
        return false;
    }
    AccessibilityTree& tree = m_attributes.tree();
    if (tree.isSameElement(focused, element)) {
        return true;
    }
    // Browsers hand out a fresh reference for each read; their node id tells whether it is the same node.
    const std::optional<AccessibilityValue> focusedNode = tree.attribute(focused, chromeNodeId);
    const std::optional<AccessibilityValue> elementNode = tree.attribute(element, chromeNodeId);
    if (focusedNode && elementNode && *focusedNode == *elementNode) {
        return true;
    }
    if (m_attributes.stringAttribute(focused, axRole) != m_attributes.stringAttribute(element, axRole)) {
        return false;
    }
    const std::optional<QRectF> focusedFrame = m_attributes.frameAttribute(focused);
    const std::optional<QRectF> elementFrame = m_attributes.frameAttribute(element);
    return focusedFrame && elementFrame && *focusedFrame == *elementFrame;
}
