#include "AtspiAccessibilityTree.h"

#include "AtspiFocusTracker.h"
#include "AtspiObjectPtr.h"

#include <QElapsedTimer>
#include <QQueue>
#include <QRectF>
#include <functional>
#include <initializer_list>

namespace {

template <typename T> using GObjectPtr = AtspiObjectPtr<T>;

struct Free {
    void operator()(gpointer data) const { g_free(data); }
};
template <typename T> using GFreePtr = std::unique_ptr<T, Free>;

// Collects the error of one call and drops it: a failed call is an empty answer here.
class CallError {
public:
    CallError() = default;
    ~CallError()
    {
        if (m_error != nullptr) {
            g_error_free(m_error);
        }
    }
    CallError(const CallError&) = delete;
    CallError& operator=(const CallError&) = delete;

    GError** out() { return &m_error; }
    bool failed() const { return m_error != nullptr; }

private:
    GError* m_error = nullptr;
};

AtspiAccessible* accessible(const AccessibilityElement& element)
{
    return element.handle<AtspiAccessible>();
}

AccessibilityElement adopt(AtspiAccessible* object)
{
    return adoptAtspiObject(object);
}

GObjectPtr<AtspiStateSet> states(AtspiAccessible* object)
{
    return GObjectPtr<AtspiStateSet>(atspi_accessible_get_state_set(object));
}

bool hasState(AtspiAccessible* object, AtspiStateType state)
{
    const GObjectPtr<AtspiStateSet> set = states(object);
    return set && atspi_state_set_contains(set.get(), state);
}

std::optional<AtspiRole> role(AtspiAccessible* object)
{
    CallError error;
    const AtspiRole result = atspi_accessible_get_role(object, error.out());
    return error.failed() ? std::nullopt : std::optional(result);
}

QString roleName(AtspiAccessible* object)
{
    const std::optional<AtspiRole> value = role(object);
    if (!value) {
        return {};
    }
    switch (*value) {
    case ATSPI_ROLE_ENTRY:
    case ATSPI_ROLE_PASSWORD_TEXT:
    case ATSPI_ROLE_SPIN_BUTTON:
        return QStringLiteral("AXTextField");
    case ATSPI_ROLE_TEXT:
        return hasState(object, ATSPI_STATE_MULTI_LINE) ? QStringLiteral("AXTextArea")
                                                        : QStringLiteral("AXTextField");
    case ATSPI_ROLE_DOCUMENT_TEXT:
    case ATSPI_ROLE_PARAGRAPH:
        return hasState(object, ATSPI_STATE_EDITABLE) ? QStringLiteral("AXTextArea")
                                                      : QStringLiteral("AXGroup");
    case ATSPI_ROLE_DOCUMENT_WEB:
    case ATSPI_ROLE_DOCUMENT_FRAME:
        return QStringLiteral("AXWebArea");
    case ATSPI_ROLE_COMBO_BOX:
        return QStringLiteral("AXComboBox");
    case ATSPI_ROLE_TOOL_BAR:
        return QStringLiteral("AXToolbar");
    case ATSPI_ROLE_PANEL:
    case ATSPI_ROLE_FILLER:
    case ATSPI_ROLE_SECTION:
    case ATSPI_ROLE_GROUPING:
    case ATSPI_ROLE_FORM:
    case ATSPI_ROLE_SCROLL_PANE:
    case ATSPI_ROLE_VIEWPORT:
        return QStringLiteral("AXGroup");
    case ATSPI_ROLE_FRAME:
    case ATSPI_ROLE_WINDOW:
    case ATSPI_ROLE_DIALOG:
        return QStringLiteral("AXWindow");
    case ATSPI_ROLE_APPLICATION:
        return QStringLiteral("AXApplication");
    case ATSPI_ROLE_PUSH_BUTTON:
    case ATSPI_ROLE_TOGGLE_BUTTON:
        return QStringLiteral("AXButton");
    case ATSPI_ROLE_LABEL:
    case ATSPI_ROLE_STATIC:
        return QStringLiteral("AXStaticText");
    case ATSPI_ROLE_LINK:
        return QStringLiteral("AXLink");
    case ATSPI_ROLE_MENU_BAR:
        return QStringLiteral("AXMenuBar");
    case ATSPI_ROLE_MENU_ITEM:
        return QStringLiteral("AXMenuItem");
    case ATSPI_ROLE_LIST:
        return QStringLiteral("AXList");
    case ATSPI_ROLE_CHECK_BOX:
        return QStringLiteral("AXCheckBox");
    case ATSPI_ROLE_RADIO_BUTTON:
        return QStringLiteral("AXRadioButton");
    case ATSPI_ROLE_IMAGE:
        return QStringLiteral("AXImage");
    case ATSPI_ROLE_SCROLL_BAR:
        return QStringLiteral("AXScrollBar");
    default:
        return QStringLiteral("AXUnknown");
    }
}

// The children in order; a bounded caller stops the listing early by answering false from goOn.
QList<AccessibilityElement> children(AtspiAccessible* object, const std::function<bool()>& goOn = {})
{
    QList<AccessibilityElement> result;
    CallError countError;
    const gint count = atspi_accessible_get_child_count(object, countError.out());
    for (gint index = 0; !countError.failed() && index < count && (!goOn || goOn()); ++index) {
        CallError error;
        if (AccessibilityElement child =
                adopt(atspi_accessible_get_child_at_index(object, index, error.out()))) {
            result.append(child);
        }
    }
    return result;
}

GObjectPtr<AtspiText> textInterface(AtspiAccessible* object)
{
    return GObjectPtr<AtspiText>(atspi_accessible_get_text_iface(object));
}

GObjectPtr<AtspiEditableText> editableTextInterface(AtspiAccessible* object)
{
    return GObjectPtr<AtspiEditableText>(atspi_accessible_get_editable_text_iface(object));
}

std::optional<QString> text(AtspiText* text, gint start, gint end)
{
    CallError error;
    const GFreePtr<gchar> value(atspi_text_get_text(text, start, end, error.out()));
    return error.failed() || !value ? std::nullopt : std::optional(QString::fromUtf8(value.get()));
}

// The selected ranges, in character offsets; empty when nothing is selected.
std::optional<QList<std::pair<gint, gint>>> selections(AtspiText* text)
{
    CallError countError;
    const gint count = atspi_text_get_n_selections(text, countError.out());
    if (countError.failed()) {
        return std::nullopt;
    }
    QList<std::pair<gint, gint>> result;
    for (gint index = 0; index < count; ++index) {
        CallError error;
        const GFreePtr<AtspiRange> range(atspi_text_get_selection(text, index, error.out()));
        if (error.failed() || !range) {
            return std::nullopt;
        }
        if (range->end_offset > range->start_offset) {
            result.append({range->start_offset, range->end_offset});
        }
    }
    return result;
}

std::optional<QString> selectedText(AtspiAccessible* object)
{
    const GObjectPtr<AtspiText> iface = textInterface(object);
    if (!iface) {
        return std::nullopt;
    }
    const std::optional<QList<std::pair<gint, gint>>> ranges = selections(iface.get());
    if (!ranges) {
        return std::nullopt;
    }
    QString result;
    for (const auto& [start, end] : *ranges) {
        const std::optional<QString> part = text(iface.get(), start, end);
        if (!part) {
            return std::nullopt;
        }
        result += *part;
    }
    return result;
}

std::optional<gint> characterCount(AtspiText* text)
{
    CallError error;
    const gint count = atspi_text_get_character_count(text, error.out());
    return error.failed() ? std::nullopt : std::optional(count);
}

std::optional<QRectF> frame(AtspiAccessible* object)
{
    const GObjectPtr<AtspiComponent> component(atspi_accessible_get_component_iface(object));
    if (!component) {
        return std::nullopt;
    }
    CallError error;
    const GFreePtr<AtspiRect> rect(
        atspi_component_get_extents(component.get(), ATSPI_COORD_TYPE_SCREEN, error.out()));
    if (error.failed() || !rect || rect->width < 0 || rect->height < 0) {
        return std::nullopt;
    }
    return QRectF(rect->x, rect->y, rect->width, rect->height);
}

AccessibilityElement parent(AtspiAccessible* object)
{
    CallError error;
    AccessibilityElement result = adopt(atspi_accessible_get_parent(object, error.out()));
    // The desktop above the applications is no element of theirs.
    if (result && role(accessible(result)) == ATSPI_ROLE_DESKTOP_FRAME) {
        return {};
    }
    return result;
}

// The window of the application that the window manager shows as active, else its first window.
AccessibilityElement focusedWindow(AtspiAccessible* application)
{
    const QList<AccessibilityElement> windows = children(application);
    for (const AccessibilityElement& window : windows) {
        if (hasState(accessible(window), ATSPI_STATE_ACTIVE)) {
            return window;
        }
    }
    return windows.isEmpty() ? AccessibilityElement() : windows.first();
}

// A search rule: every one of the states, and any one of the roles when roles are given.
GObjectPtr<AtspiMatchRule> matchRule(std::initializer_list<AtspiStateType> required,
                                     std::initializer_list<AtspiRole> anyRole)
{
    const GObjectPtr<AtspiStateSet> states(atspi_state_set_new(nullptr));
    for (const AtspiStateType state : required) {
        atspi_state_set_add(states.get(), state);
    }
    GArray* roles = g_array_new(FALSE, FALSE, sizeof(AtspiRole));
    for (const AtspiRole value : anyRole) {
        g_array_append_val(roles, value);
    }
    GObjectPtr<AtspiMatchRule> rule(atspi_match_rule_new(
        states.get(), ATSPI_Collection_MATCH_ALL, nullptr, ATSPI_Collection_MATCH_NONE, roles,
        anyRole.size() == 0 ? ATSPI_Collection_MATCH_NONE : ATSPI_Collection_MATCH_ANY, nullptr,
        ATSPI_Collection_MATCH_NONE, FALSE));
    g_array_unref(roles);
    return rule;
}

// The application's own search through its tree (the Collection interface), in document order, at most
// limit; nullopt where the toolkit does not offer it (Qt does not) or the call fails.
std::optional<QList<AccessibilityElement>> matches(AtspiAccessible* root, AtspiMatchRule* rule, int limit)
{
    const GObjectPtr<AtspiCollection> collection(atspi_accessible_get_collection_iface(root));
    if (!collection || rule == nullptr) {
        return std::nullopt;
    }
    CallError error;
    GArray* found = atspi_collection_get_matches(
        collection.get(), rule, ATSPI_Collection_SORT_ORDER_CANONICAL, gint(limit), TRUE, error.out());
    if (error.failed() || found == nullptr) {
        if (found != nullptr) {
            g_array_free(found, TRUE);
        }
        return std::nullopt;
    }
    QList<AccessibilityElement> result;
    for (guint index = 0; index < found->len; ++index) {
        if (AccessibilityElement element = adopt(g_array_index(found, AtspiAccessible*, index))) {
            result.append(element);
        }
    }
    g_array_free(found, TRUE);
    return result;
}

// Breadth first through the active window, then the others; the first element in the focused state. The
// last resort for a toolkit without the Collection search whose focus was gained before the tracker
// started. Bounded in elements reached and in time, since each costs the other application a call or
// more (one window may hold thousands of children): past the bounds the read is empty and the caller takes
// the clipboard route.
AccessibilityElement walkToFocusedElement(AtspiAccessible* application)
{
    QElapsedTimer elapsed;
    elapsed.start();
    int reached = 0;
    const std::function<bool()> withinBounds = [&] {
        return reached++ < AtspiAccessibilityTree::focusSearchLimit &&
               elapsed.elapsed() < AtspiAccessibilityTree::focusSearchBudget.count();
    };
    QQueue<AccessibilityElement> queue;
    for (const AccessibilityElement& window : children(application)) {
        if (hasState(accessible(window), ATSPI_STATE_ACTIVE)) {
            queue.prepend(window);
        } else {
            queue.enqueue(window);
        }
    }
    while (!queue.isEmpty() && withinBounds()) {
        AccessibilityElement element = queue.dequeue();
        const GObjectPtr<AtspiStateSet> set = states(accessible(element));
        if (!set) {
            continue;
        }
        if (atspi_state_set_contains(set.get(), ATSPI_STATE_FOCUSED)) {
            return element;
        }
        // Hidden subtrees hold no focus; containers that manage their descendants list them lazily.
        if (atspi_state_set_contains(set.get(), ATSPI_STATE_SHOWING) &&
            !atspi_state_set_contains(set.get(), ATSPI_STATE_MANAGES_DESCENDANTS)) {
            queue.append(children(accessible(element), withinBounds));
        }
    }
    return {};
}

// The focus events' answer when it still holds, else the application's own search, else the walk. What
// the search or the walk finds is handed to the tracker, whose events tell when it loses the focus.
AccessibilityElement focusedElement(AtspiAccessible* application, AtspiFocusTracker* tracker)
{
    const QByteArray busName = AtspiFocusTracker::busName(application);
    if (tracker != nullptr) {
        AccessibilityElement known = tracker->focusedElement(busName);
        if (known && hasState(accessible(known), ATSPI_STATE_FOCUSED)) {
            return known;
        }
    }
    AccessibilityElement found;
    const GObjectPtr<AtspiMatchRule> rule = matchRule({ATSPI_STATE_FOCUSED}, {});
    if (const std::optional<QList<AccessibilityElement>> matched = matches(application, rule.get(), 1)) {
        found = matched->isEmpty() ? AccessibilityElement() : matched->first();
    } else {
        found = walkToFocusedElement(application);
    }
    if (found && tracker != nullptr) {
        tracker->remember(busName, found);
    }
    return found;
}

QString actionName(const QString& toolkitName)
{
    static const QStringList presses{QStringLiteral("press"), QStringLiteral("click"),
                                     QStringLiteral("activate"), QStringLiteral("jump")};
    return presses.contains(toolkitName.toLower()) ? QStringLiteral("AXPress") : toolkitName;
}

// Replaces the selection (or inserts at the caret when nothing is selected) with text.
bool replaceSelection(AtspiAccessible* object, const QString& replacement)
{
    const GObjectPtr<AtspiText> textIface = textInterface(object);
    const GObjectPtr<AtspiEditableText> editable = editableTextInterface(object);
    if (!textIface || !editable) {
        return false;
    }
    const std::optional<QList<std::pair<gint, gint>>> ranges = selections(textIface.get());
    if (!ranges) {
        return false;
    }
    gint start = 0;
    if (ranges->isEmpty()) {
        CallError error;
        start = atspi_text_get_caret_offset(textIface.get(), error.out());
        if (error.failed()) {
            return false;
        }
    } else {
        start = ranges->first().first;
        CallError error;
        if (!atspi_editable_text_delete_text(editable.get(), start, ranges->first().second, error.out()) ||
            error.failed()) {
            return false;
        }
    }
    const QByteArray utf8 = replacement.toUtf8();
    CallError error;
    return atspi_editable_text_insert_text(editable.get(), start, utf8.constData(), gint(utf8.size()),
                                           error.out()) &&
           !error.failed();
}

} // namespace

AtspiAccessibilityTree::AtspiAccessibilityTree(std::chrono::milliseconds callTimeout)
    : m_activation(callTimeout)
{
    atspi_set_timeout(gint(callTimeout.count()), gint(callTimeout.count()));
    const int status = atspi_init();
    // WORKAROUND: AT-SPI aborts the process on any call once it has failed to reach its bus, so nothing is
    // asked of it unless the bus is really there; init answers 1 when another part of the process was first.
    m_available = (status == 0 || status == 1) && atspi_get_a11y_bus() != nullptr;
    m_startedLibrary = status == 0;
    if (m_available) {
        m_focusTracker = std::make_unique<AtspiFocusTracker>();
    }
}

AtspiAccessibilityTree::~AtspiAccessibilityTree()
{
    // The tracker deregisters through the library, so it goes first.
    m_focusTracker.reset();
    if (m_startedLibrary) {
        atspi_exit();
    }
}

AccessibilityElement AtspiAccessibilityTree::applicationElement(qint32 processIdentifier)
{
    if (!m_available || processIdentifier <= 0) {
        return {};
    }
    const GObjectPtr<AtspiAccessible> desktop(atspi_get_desktop(0));
    if (!desktop) {
        return {};
    }
    for (const AccessibilityElement& application : children(desktop.get())) {
        CallError error;
        const guint process = atspi_accessible_get_process_id(accessible(application), error.out());
        if (!error.failed() && qint32(process) == processIdentifier) {
            // WORKAROUND: AT-SPI's own cache stays on. Without it the library asks an application for states
            // while it handles that application's events inside a call that awaits an answer, and libdbus
            // deadlocks there (GTK's windows, at the first Collection search). The states it caches follow
            // the state events the focus tracker subscribes to; texts are never cached.
            return application;
        }
    }
    return {};
}

std::optional<AccessibilityValue> AtspiAccessibilityTree::attribute(const AccessibilityElement& element,
                                                                    const QString& name)
{
    AtspiAccessible* object = accessible(element);
    if (!m_available || object == nullptr) {
        return std::nullopt;
    }
    if (name == QStringLiteral("AXRole")) {
        const QString value = roleName(object);
        return value.isEmpty() ? std::nullopt : std::optional<AccessibilityValue>(value);
    }
    if (name == QStringLiteral("AXSelectedText")) {
        const std::optional<QString> value = selectedText(object);
        return value ? std::optional<AccessibilityValue>(*value) : std::nullopt;
    }
    if (name == QStringLiteral("AXValue")) {
        const GObjectPtr<AtspiText> iface = textInterface(object);
        const std::optional<QString> value = iface ? text(iface.get(), 0, -1) : std::nullopt;
        return value ? std::optional<AccessibilityValue>(*value) : std::nullopt;
    }
    if (name == QStringLiteral("AXNumberOfCharacters")) {
        const GObjectPtr<AtspiText> iface = textInterface(object);
        const std::optional<gint> count = iface ? characterCount(iface.get()) : std::nullopt;
        return count ? std::optional<AccessibilityValue>(double(*count)) : std::nullopt;
    }
    if (name == QStringLiteral("AXFocusedUIElement")) {
        const AccessibilityElement focused = focusedElement(object, m_focusTracker.get());
        return focused ? std::optional<AccessibilityValue>(focused) : std::nullopt;
    }
    if (name == QStringLiteral("AXFocusedWindow")) {
        const AccessibilityElement window = focusedWindow(object);
        return window ? std::optional<AccessibilityValue>(window) : std::nullopt;
    }
    if (name == QStringLiteral("AXParent")) {
        const AccessibilityElement up = parent(object);
        return up ? std::optional<AccessibilityValue>(up) : std::nullopt;
    }
    if (name == QStringLiteral("AXChildren")) {
        return AccessibilityValue(children(object));
    }
    if (name == QStringLiteral("AXPosition") || name == QStringLiteral("AXSize")) {
        const std::optional<QRectF> rect = frame(object);
        if (!rect) {
            return std::nullopt;
        }
        return name == QStringLiteral("AXPosition") ? AccessibilityValue(rect->topLeft())
                                                    : AccessibilityValue(rect->size());
    }
    const GObjectPtr<AtspiStateSet> set = states(object);
    if (!set) {
        return std::nullopt;
    }
    if (name == QStringLiteral("AXFocused")) {
        return AccessibilityValue(bool(atspi_state_set_contains(set.get(), ATSPI_STATE_FOCUSED)));
    }
    if (name == QStringLiteral("AXEnabled")) {
        return AccessibilityValue(bool(atspi_state_set_contains(set.get(), ATSPI_STATE_ENABLED)));
    }
    if (name == QStringLiteral("AXIsEditable")) {
        return AccessibilityValue(bool(atspi_state_set_contains(set.get(), ATSPI_STATE_EDITABLE)));
    }
    if (name == QStringLiteral("AXTitle")) {
        CallError error;
        const GFreePtr<gchar> value(atspi_accessible_get_name(object, error.out()));
        return error.failed() || !value ? std::nullopt
                                        : std::optional<AccessibilityValue>(QString::fromUtf8(value.get()));
    }
    return std::nullopt;
}

QStringList AtspiAccessibilityTree::attributeNames(const AccessibilityElement& element)
{
    AtspiAccessible* object = accessible(element);
    if (!m_available || object == nullptr || !role(object)) {
        return {};
    }
    QStringList names{QStringLiteral("AXRole"),    QStringLiteral("AXParent"),  QStringLiteral("AXChildren"),
                      QStringLiteral("AXFocused"), QStringLiteral("AXEnabled"), QStringLiteral("AXTitle")};
    if (const GObjectPtr<AtspiComponent> component(atspi_accessible_get_component_iface(object)); component) {
        names << QStringLiteral("AXPosition") << QStringLiteral("AXSize");
    }
    if (textInterface(object)) {
        names << QStringLiteral("AXValue") << QStringLiteral("AXSelectedText")
              << QStringLiteral("AXNumberOfCharacters");
    }
    if (hasState(object, ATSPI_STATE_EDITABLE)) {
        names << QStringLiteral("AXIsEditable");
    }
    return names;
}

std::optional<bool> AtspiAccessibilityTree::isAttributeSettable(const AccessibilityElement& element,
                                                                const QString& name)
{
    AtspiAccessible* object = accessible(element);
    if (!m_available || object == nullptr) {
        return std::nullopt;
    }
    const GObjectPtr<AtspiStateSet> set = states(object);
    if (!set) {
        return std::nullopt;
    }
    if (name == QStringLiteral("AXManualAccessibility")) {
        return true;
    }
    if (name == QStringLiteral("AXSelectedText") || name == QStringLiteral("AXValue")) {
        return atspi_state_set_contains(set.get(), ATSPI_STATE_EDITABLE) && editableTextInterface(object) &&
               textInterface(object);
    }
    if (name == QStringLiteral("AXFocused")) {
        return bool(atspi_state_set_contains(set.get(), ATSPI_STATE_FOCUSABLE));
    }
    return false;
}

bool AtspiAccessibilityTree::setAttribute(const AccessibilityElement& element, const QString& name,
                                          const AccessibilityValue& value)
{
    AtspiAccessible* object = accessible(element);
    // The desktop's switch, not the element's: an application not yet on the bus has no element to set it on.
    if (name == QStringLiteral("AXManualAccessibility") && std::holds_alternative<bool>(value) &&
        std::get<bool>(value)) {
        return enableAccessibility();
    }
    if (!m_available || object == nullptr) {
        return false;
    }
    if (name == QStringLiteral("AXSelectedText") && std::holds_alternative<QString>(value)) {
        return isAttributeSettable(element, name).value_or(false) &&
               replaceSelection(object, std::get<QString>(value));
    }
    if (name == QStringLiteral("AXValue") && std::holds_alternative<QString>(value)) {
        const GObjectPtr<AtspiEditableText> editable = editableTextInterface(object);
        CallError error;
        return editable &&
               atspi_editable_text_set_text_contents(
                   editable.get(), std::get<QString>(value).toUtf8().constData(), error.out()) &&
               !error.failed();
    }
    if (name == QStringLiteral("AXFocused") && std::holds_alternative<bool>(value) && std::get<bool>(value)) {
        const GObjectPtr<AtspiComponent> component(atspi_accessible_get_component_iface(object));
        CallError error;
        return component && atspi_component_grab_focus(component.get(), error.out()) && !error.failed();
    }
    return false;
}

QStringList AtspiAccessibilityTree::actionNames(const AccessibilityElement& element)
{
    AtspiAccessible* object = accessible(element);
    if (!m_available || object == nullptr) {
        return {};
    }
    const GObjectPtr<AtspiAction> action(atspi_accessible_get_action_iface(object));
    if (!action) {
        return {};
    }
    QStringList names;
    CallError countError;
    const gint count = atspi_action_get_n_actions(action.get(), countError.out());
    for (gint index = 0; !countError.failed() && index < count; ++index) {
        CallError error;
        const GFreePtr<gchar> name(atspi_action_get_action_name(action.get(), index, error.out()));
        if (!error.failed() && name) {
            names.append(actionName(QString::fromUtf8(name.get())));
        }
    }
    return names;
}

bool AtspiAccessibilityTree::performAction(const AccessibilityElement& element, const QString& name)
{
    const qsizetype index = actionNames(element).indexOf(name);
    if (index < 0) {
        return false;
    }
    const GObjectPtr<AtspiAction> action(atspi_accessible_get_action_iface(accessible(element)));
    CallError error;
    return action && atspi_action_do_action(action.get(), gint(index), error.out()) && !error.failed();
}

QList<AccessibilityElement> AtspiAccessibilityTree::searchTextFields(const AccessibilityElement& element,
                                                                     int limit)
{
    AtspiAccessible* object = accessible(element);
    if (!m_available || object == nullptr || limit <= 0) {
        return {};
    }
    // Editable text of every kind the toolkits give: entries, text views, documents, and the editable
    // sections of web pages; showing, as the search is for fields the user can see.
    const GObjectPtr<AtspiMatchRule> rule =
        matchRule({ATSPI_STATE_SHOWING, ATSPI_STATE_EDITABLE},
                  {ATSPI_ROLE_ENTRY, ATSPI_ROLE_PASSWORD_TEXT, ATSPI_ROLE_TEXT, ATSPI_ROLE_DOCUMENT_TEXT,
                   ATSPI_ROLE_SECTION, ATSPI_ROLE_PARAGRAPH});
    return matches(object, rule.get(), limit).value_or(QList<AccessibilityElement>());
}

bool AtspiAccessibilityTree::enableAccessibility()
{
    // Asked once per run at most: every reply-editor search sets it, and the answer does not change.
    if (m_accessibilityEnabled || m_activation.isEnabled() == true) {
        m_accessibilityEnabled = true;
        return true;
    }
    m_accessibilityEnabled = m_activation.enable();
    return m_accessibilityEnabled;
}

bool AtspiAccessibilityTree::isSameElement(const AccessibilityElement& first,
                                           const AccessibilityElement& second)
{
    AtspiAccessible* one = accessible(first);
    AtspiAccessible* other = accessible(second);
    if (one == nullptr || other == nullptr) {
        return false;
    }
    if (one == other) {
        return true;
    }
    // Two proxies of one remote object: the same application connection and object path.
    // WORKAROUND: AT-SPI has no call that compares two proxies, and none that gives an object's bus name
    // and path; its structures are public in the headers, so they are read directly.
    const AtspiObject& a = one->parent;
    const AtspiObject& b = other->parent;
    return a.app != nullptr && b.app != nullptr && a.path != nullptr && b.path != nullptr &&
           qstrcmp(a.app->bus_name, b.app->bus_name) == 0 && qstrcmp(a.path, b.path) == 0;
}
