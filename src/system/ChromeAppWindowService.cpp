#include "system/ChromeAppWindowService.h"

#include "core/Clock.h"
#include "platform/AccessibilityTree.h"
#include "platform/ApplicationWorkspace.h"
#include "platform/BrowserTabRemote.h"

using namespace std::chrono_literals;

namespace {
// The address field sits a few levels under the window; a deeper or longer search means it has none.
constexpr int deepestLevel = 11;
constexpr int searchBudget = 400;
constexpr int polls = 12;
constexpr auto pollInterval = 250ms;
constexpr auto settleDelay = 150ms;
} // namespace

ChromeAppWindowService::ChromeAppWindowService(ApplicationWorkspace& workspace,
                                               AccessibilityTree& accessibility, BrowserTabRemote* remote,
                                               Clock& clock, TileFocusedWindow tile)
    : m_workspace(workspace), m_accessibility(accessibility), m_remote(remote), m_clock(clock),
      m_tile(std::move(tile))
{}

bool ChromeAppWindowService::popOutActiveTabIfNeeded(WindowTileSlot slot)
{
    if (!canPopOut()) {
        return false;
    }
    const auto front = m_workspace.frontmostApplication();
    if (!front || front->bundleIdentifier != m_remote->applicationIdentifier()) {
        return false;
    }
    const auto window = m_accessibility.attribute(
        m_accessibility.applicationElement(front->processIdentifier), QStringLiteral("AXFocusedWindow"));
    const auto* element = window ? std::get_if<AccessibilityElement>(&*window) : nullptr;
    int budget = searchBudget;
    // An app window has no address field and is tiled as it is.
    if (element == nullptr || element->isNull() || !containsTextField(*element, 0, budget)) {
        return false;
    }
    const QString url = m_remote->activeTabUrl().value_or(QString());
    if (url.isEmpty()) {
        return false;
    }
    m_remote->closeActiveTab();
    m_remote->openAppWindow(url);
    tileWhenShown(url, slot);
    return true;
}

bool ChromeAppWindowService::containsTextField(const AccessibilityElement& element, int depth, int& budget)
{
    if (depth > deepestLevel || budget < 1) {
        return false;
    }
    --budget;
    const auto role = m_accessibility.attribute(element, QStringLiteral("AXRole"));
    const QString* roleText = role ? std::get_if<QString>(&*role) : nullptr;
    if (roleText != nullptr && *roleText == u"AXWebArea") {
        // Fields of the page are not the browser's.
        return false;
    }
    if (roleText != nullptr && *roleText == u"AXTextField" && depth >= 1) {
        return true;
    }
    const auto children = m_accessibility.attribute(element, QStringLiteral("AXChildren"));
    const auto* list = children ? std::get_if<QList<AccessibilityElement>>(&*children) : nullptr;
    if (list == nullptr) {
        return false;
    }
    for (const AccessibilityElement& child : *list) {
        if (containsTextField(child, depth + 1, budget)) {
            return true;
        }
    }
    return false;
}

QCoro::Task<> ChromeAppWindowService::tileWhenShown(QString url, WindowTileSlot slot)
{
    for (int poll = 0; poll < polls; ++poll) {
        co_await m_clock.sleep(pollInterval);
        if (m_remote->activeTabUrl() == url) {
            co_await m_clock.sleep(settleDelay);
            m_tile(slot);
            co_return;
        }
    }
}
