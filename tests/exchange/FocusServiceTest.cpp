#include "AwaitTask.h"
#include "ExchangeHarness.h"
#include "FakePrimarySelection.h"
#include "exchange/QuietSelectionReader.h"

namespace {

const QString textArea = QStringLiteral("AXTextArea");
const QString textField = QStringLiteral("AXTextField");

class FocusServiceTest : public ExchangeHarness {
protected:
    // A browser window: a toolbar with the address field, and a page.
    void buildBrowser()
    {
        toolbar = tree.add(window, QStringLiteral("AXToolbar"));
        addressField =
            tree.addEditor(toolbar, textField, {0, 40, 900, 30}, QStringLiteral("https://chat.example"));
        webArea = tree.add(tree.add(window, QStringLiteral("AXGroup")), QStringLiteral("AXWebArea"));
        tree.set(application, QStringLiteral("AXFocusedUIElement"), addressField);
    }

    AccessibilityElement webEditor(const QRectF& frame, const QString& value = {},
                                   const QString& role = textArea)
    {
        const AccessibilityElement element = tree.addEditor(webArea, role, frame, value);
        tree.node(element).extraNames << QStringLiteral("ChromeAXNodeId");
        return element;
    }

    AccessibilityElement focusedElement()
    {
        return std::get<AccessibilityElement>(
            tree.node(application).attributes.value(QStringLiteral("AXFocusedUIElement")));
    }

    AccessibilityElement toolbar, addressField, webArea;
};

TEST_F(FocusServiceTest, RemembersOnlyForeignApplicationsWithAnIdentifierAndNotTheReplyTarget)
{
    EXPECT_EQ(focus.rememberedProcessIdentifier(), target);
    EXPECT_EQ(focus.rememberedBundleIdentifier(), QStringLiteral("org.example.chat"));
    EXPECT_EQ(focus.rememberedWindow(), window);

    workspace.addApplication(50, QString());
    workspace.addApplication(51, QStringLiteral("ai.mivora.desktop"));
    workspace.bringToFront(50);
    workspace.bringToFront(51);
    EXPECT_EQ(focus.rememberedProcessIdentifier(), target);

    workspace.addApplication(60, QStringLiteral("org.example.editor"));
    workspace.bringToFront(60);
    EXPECT_EQ(focus.rememberedProcessIdentifier(), 60);
    EXPECT_TRUE(focus.rememberedWindow().isNull());

    // The reply target coming forward for a paste does not replace the remembered window.
    const AccessibilityElement otherWindow = tree.add(application, QStringLiteral("AXWindow"));
    tree.set(application, QStringLiteral("AXFocusedWindow"), otherWindow);

    // The first activation was asked for by the paste itself; a later one is the user's.
    ASSERT_TRUE(focus.beginAIReplyPaste(target));
    EXPECT_EQ(focus.rememberedProcessIdentifier(), 60);
    focus.endAIReplyPaste();
    workspace.bringToFront(target);
    EXPECT_EQ(focus.rememberedWindow(), otherWindow);
}

TEST_F(FocusServiceTest, AddressBarFocusIsRejectedAndTheLowestEmptyPageEditorWins)
{
    buildBrowser();
    const AccessibilityElement upper = webEditor({0, 300, 600, 60});
    const AccessibilityElement lower = webEditor({0, 800, 600, 60});
    const AccessibilityElement filled = webEditor({0, 810, 600, 60}, QStringLiteral("sent text"));
    tree.setSearchResults(webArea, {upper, lower, filled});
    // The winner takes the focus only when pressed, so it is pressed.
    tree.node(lower).focusesOnPress = true;
    tree.node(lower).actions << QStringLiteral("AXPress");

    ASSERT_TRUE(focus.focusAIReplyEditor(target));
    EXPECT_EQ(focus.replyEditor(), lower);
    EXPECT_EQ(focusedElement(), lower);
    EXPECT_TRUE(tree.performedActions().contains(QStringLiteral("AXPress")));

    // Another process ends the search at once.
    EXPECT_FALSE(focus.focusAIReplyEditor(target + 1));
}

TEST_F(FocusServiceTest, ScoreWeighsPositionAboveRoleAndCapsTheWidth)
{
    buildBrowser();
    // A text area 100 higher than a group editor loses by position more than it gains by role.
    const AccessibilityElement area = webEditor({0, 600, 500, 40});
    const AccessibilityElement group = webEditor({0, 700, 500, 40}, {}, QStringLiteral("AXGroup"));
    tree.node(group).extraNames << QStringLiteral("AXEditableAncestor") << QStringLiteral("AXSelectedText");
    EXPECT_GT(focus.score(group), focus.score(area));
    // Width counts only up to a cap, and an editor without a frame never wins.
    EXPECT_EQ(focus.score(webEditor({0, 700, 5000, 40})), focus.score(webEditor({0, 700, 1000, 40})));
    EXPECT_EQ(focus.score(tree.add(webArea, textArea)), std::numeric_limits<double>::lowest());
}

TEST_F(FocusServiceTest, EditorsBelowTheSizeFloorAndDisabledOnesNeverCount)
{
    tree.addEditor(window, textField, {0, 0, 39, 30});
    tree.addEditor(window, textField, {0, 0, 300, 13});
    const AccessibilityElement disabled = tree.addEditor(window, textField, {0, 0, 300, 30});
    tree.set(disabled, QStringLiteral("AXEnabled"), false);
    const AccessibilityElement fixed = tree.addEditor(window, textField, {0, 0, 300, 30});
    tree.node(fixed).settable.remove(QStringLiteral("AXFocused"));
    tree.addEditor(window, QStringLiteral("AXGroup"), {0, 0, 300, 30});
    const AccessibilityElement fine = tree.addEditor(window, textField, {0, 0, 40, 14});

    EXPECT_EQ(focus.editableElements(window), QList<AccessibilityElement>{fine});
}

TEST_F(FocusServiceTest, ANativeFieldOutsideWebContentIsFocusedThroughTheFocusedCandidate)
{
    const AccessibilityElement field = tree.addEditor(window, textField, {0, 0, 300, 30});
    const AccessibilityElement bigger = tree.addEditor(window, textArea, {0, 900, 900, 90});
    tree.set(application, QStringLiteral("AXFocusedUIElement"), field);
    ASSERT_TRUE(focus.focusAIReplyEditor(target));
    EXPECT_EQ(focus.replyEditor(), field);

    // Without a focused candidate the score picks among all editors.
    tree.node(application).attributes.remove(QStringLiteral("AXFocusedUIElement"));
    tree.node(field).attributes.remove(QStringLiteral("AXFocused"));
    ASSERT_TRUE(focus.focusAIReplyEditor(target));
    EXPECT_EQ(focus.replyEditor(), bigger);
}

TEST_F(FocusServiceTest, AFreshReferenceToTheSameBrowserNodeCountsAsFocused)
{
    const AccessibilityElement element = tree.addEditor(window, textArea, {0, 0, 100, 20});
    const AccessibilityElement sameNode = tree.addEditor(window, textField, {5, 5, 10, 10});
    tree.set(element, QStringLiteral("ChromeAXNodeId"), QStringLiteral("17"));
    tree.set(sameNode, QStringLiteral("ChromeAXNodeId"), QStringLiteral("17"));
    tree.set(application, QStringLiteral("AXFocusedUIElement"), sameNode);
    EXPECT_TRUE(focus.isActuallyFocused(element, application));

    // Without node ids: same role and frame.
    tree.set(sameNode, QStringLiteral("ChromeAXNodeId"), QStringLiteral("18"));
    EXPECT_FALSE(focus.isActuallyFocused(element, application));
    tree.set(sameNode, QStringLiteral("AXRole"), textArea);
    tree.setFrame(sameNode, {0, 0, 100, 20});
    EXPECT_TRUE(focus.isActuallyFocused(element, application));
}

TEST_F(FocusServiceTest, WebContentIsRecognisedByAreaOrNodeIdButNeverInsideAToolbar)
{
    buildBrowser();
    const AccessibilityElement inPage = tree.add(tree.add(webArea, QStringLiteral("AXGroup")), textArea);
    EXPECT_TRUE(focus.isInsideWebContent(inPage));
    EXPECT_FALSE(focus.isInsideWebContent(addressField));

    const AccessibilityElement shell = tree.add(window, QStringLiteral("AXGroup"));
    tree.node(shell).extraNames << QStringLiteral("ChromeAXNodeId");
    EXPECT_TRUE(focus.isInsideWebContent(tree.add(shell, textArea)));

    // A node id further up than 64 elements is not seen.
    AccessibilityElement deep = shell;
    for (int i = 0; i < 64; ++i) {
        deep = tree.add(deep, QStringLiteral("AXGroup"));
    }
    EXPECT_FALSE(focus.isInsideWebContent(deep));
}

TEST_F(FocusServiceTest, WalksStopAtTheirBounds)
{
    // 2500 plain children with one web area at the very end: the web-area walk never reaches it.
    for (int i = 0; i < 2499; ++i) {
        tree.add(window, QStringLiteral("AXGroup"));
    }
    tree.add(window, QStringLiteral("AXWebArea"));
    EXPECT_TRUE(focus.webAreas(window).isEmpty());
    EXPECT_EQ(tree.childrenReads(), FocusService::webAreaWalkLimit);

    // The web area's own children are not walked.
    const AccessibilityElement other = tree.addApplication(7);
    const AccessibilityElement area = tree.add(other, QStringLiteral("AXWebArea"));
    tree.add(tree.add(area, QStringLiteral("AXWebArea")), QStringLiteral("AXWebArea"));
    EXPECT_EQ(focus.webAreas(other), QList<AccessibilityElement>{area});

    // The full walk runs only when the search finds nothing, and visits at most its limit.
    const AccessibilityElement bare = tree.addApplication(8);
    for (int i = 0; i < 30000; ++i) {
        tree.add(bare, QStringLiteral("AXGroup"));
    }
    tree.addEditor(bare, textField, {0, 0, 100, 20});
    const int before = tree.childrenReads();
    EXPECT_TRUE(focus.editableElements(bare).isEmpty());
    EXPECT_EQ(tree.childrenReads() - before, FocusService::webAreaWalkLimit + FocusService::fullWalkLimit);
}

TEST_F(FocusServiceTest, ASearchHitIsTheWholeAnswerAndLayoutReadingLeavesItToTheCopyRoute)
{
    buildBrowser();
    const AccessibilityElement editor = webEditor({0, 800, 600, 60});
    tree.setSearchResults(webArea, {editor});
    // Found by search: the result is just the search's, even if a walk would find more.
    tree.addEditor(window, textField, {0, 900, 600, 60});
    EXPECT_EQ(focus.editableElements(window), QList<AccessibilityElement>{editor});

    tree.set(editor, QStringLiteral("AXSelectedText"), QStringLiteral("picked"));
    tree.set(application, QStringLiteral("AXFocusedUIElement"), editor);
    EXPECT_EQ(reader.selectedText(), QStringLiteral("picked"));
    EXPECT_EQ(reader.selectedTextForLayout(), QString());

    const AccessibilityElement native = tree.addEditor(window, textField, {0, 0, 100, 20});
    tree.set(native, QStringLiteral("AXSelectedText"), QStringLiteral("native"));
    tree.set(application, QStringLiteral("AXFocusedUIElement"), native);
    EXPECT_EQ(reader.selectedTextForLayout(), QStringLiteral("native"));
}

TEST_F(FocusServiceTest, TheQuietReadTakesTheTargetsOwnPrimarySelectionOnlyWhenAccessibilityHasNothing)
{
    FakePrimarySelection primary;
    QuietSelectionReader quiet(reader, focus, primary);
    buildBrowser();
    const AccessibilityElement editor = webEditor({0, 800, 600, 60});
    tree.set(editor, QStringLiteral("AXSelectedText"), QStringLiteral("picked"));
    tree.set(application, QStringLiteral("AXFocusedUIElement"), editor);
    primary.owner = target;
    primary.text = QStringLiteral("from primary");

    // Accessibility answers: the other route is never asked.
    EXPECT_EQ(AwaitTask::run(quiet.selectedText()), QStringLiteral("picked"));
    EXPECT_EQ(primary.reads, 0);
    // Browser content gives the layout fix nothing through accessibility; the target's own selection does.
    EXPECT_EQ(AwaitTask::run(quiet.selectedTextForLayout()), QStringLiteral("from primary"));
    // Held by another program, it is not what the user selected here.
    primary.owner = target + 1;
    EXPECT_EQ(AwaitTask::run(quiet.selectedTextForLayout()), QString());
}

} // namespace
