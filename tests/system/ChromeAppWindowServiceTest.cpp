#include "system/ChromeAppWindowService.h"

#include "FakeAccessibilityTree.h"
#include "FakeApplicationWorkspace.h"
#include "TestClock.h"
#include "platform/BrowserTabRemote.h"

#include <QStringList>
#include <gtest/gtest.h>

namespace {
using namespace std::chrono_literals;

constexpr qint32 browserProcess = 40;
const QString tabUrl = QStringLiteral("https://mail.example/inbox");

// Answers with the address of whichever tab the test puts in front, and notes every call.
class ScriptedBrowser : public BrowserTabRemote {
public:
    QString applicationIdentifier() override { return QStringLiteral("com.google.Chrome"); }
    std::optional<QString> activeTabUrl() override
    {
        calls << QStringLiteral("url");
        return frontUrl;
    }
    void closeActiveTab() override { calls << QStringLiteral("close"); }
    void openAppWindow(const QString& url) override { calls << QStringLiteral("open ") + url; }

    std::optional<QString> frontUrl = tabUrl;
    QStringList calls;
};

class ChromeAppWindowServiceTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        workspace.addApplication(browserProcess, browser.applicationIdentifier());
        workspace.bringToFront(browserProcess);
        useWindow(3, 0, false);
    }

    // A browser window whose only text field is depth levels down, after `before` other elements, on the
    // page when inPage holds.
    void useWindow(int depth, int before, bool inPage)
    {
        const AccessibilityElement window = tree.add(application, QStringLiteral("AXWindow"));
        for (int i = 0; i < before; ++i) {
            tree.add(window, QStringLiteral("AXGroup"));
        }
        AccessibilityElement parent = window;
        for (int level = 1; level < depth; ++level) {
            parent = tree.add(parent,
                              level == 1 && inPage ? QStringLiteral("AXWebArea") : QStringLiteral("AXGroup"));
        }
        tree.add(parent, QStringLiteral("AXTextField"));
        tree.set(application, QStringLiteral("AXFocusedWindow"), window);
    }

    TestClock clock;
    FakeApplicationWorkspace workspace;
    FakeAccessibilityTree tree;
    AccessibilityElement application = tree.addApplication(browserProcess);
    ScriptedBrowser browser;
    QList<WindowTileSlot> tiled;
    ChromeAppWindowService service{workspace, tree, &browser, clock,
                                   [this](WindowTileSlot slot) { tiled << slot; }};
};

// Only a window with an address field of its own is a tab to take out: one found within 11 levels and
// 400 elements, outside the page.
TEST_F(ChromeAppWindowServiceTest, OnlyAWindowWithAnAddressFieldPopsOut)
{
    struct Case {
        const char* name;
        int depth;
        int before;
        bool inPage;
        bool popsOut;
    };
    for (const Case& c : std::vector<Case>{{"at the deepest level", 11, 0, false, true},
                                           {"one level deeper", 12, 0, false, false},
                                           {"the 400th element", 1, 398, false, true},
                                           {"the 401st element", 1, 399, false, false},
                                           {"a field of the page", 3, 0, true, false}}) {
        useWindow(c.depth, c.before, c.inPage);
        EXPECT_EQ(service.popOutActiveTabIfNeeded(WindowTileSlot::leftHalf), c.popsOut) << c.name;
        clock.advance(5s);
    }
}

TEST_F(ChromeAppWindowServiceTest, TheTabMovesOutAndItsWindowIsTiledOnceInFront)
{
    ASSERT_TRUE(service.popOutActiveTabIfNeeded(WindowTileSlot::rightHalf));
    EXPECT_EQ(browser.calls, (QStringList{"url", "close", "open " + tabUrl}));
    // The old window's next tab is in front until the app window shows, at the third poll.
    browser.frontUrl = QStringLiteral("https://news.example/");
    clock.advance(500ms);
    browser.frontUrl = tabUrl;
    clock.advance(250ms + 149ms);
    EXPECT_TRUE(tiled.isEmpty());
    clock.advance(1ms);
    EXPECT_EQ(tiled, QList<WindowTileSlot>{WindowTileSlot::rightHalf});
    EXPECT_EQ(browser.calls.count("url"), 4);

    // A window that never shows, or a browser that stops answering, ends the polls after twelve.
    browser.calls.clear();
    ASSERT_TRUE(service.popOutActiveTabIfNeeded(WindowTileSlot::leftHalf));
    browser.frontUrl.reset();
    clock.advance(10s);
    EXPECT_EQ(browser.calls.count("url"), 13);
    EXPECT_EQ(tiled.size(), 1);
}

TEST_F(ChromeAppWindowServiceTest, ATabWithoutAddressIsLeftAndTheWindowTiledAsItIs)
{
    browser.frontUrl = QString();
    EXPECT_FALSE(service.popOutActiveTabIfNeeded(WindowTileSlot::leftHalf));
    EXPECT_EQ(browser.calls, QStringList{"url"});
}
} // namespace
