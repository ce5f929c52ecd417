#include "ExchangeHarness.h"

using namespace std::chrono_literals;
using Kind = PasteboardServiceError::Kind;

namespace {

class PasteTransientTest : public ExchangeHarness {
protected:
    Outcome<bool> paste(const QString& text, std::optional<QString> bundle = std::nullopt,
                        PasteboardTiming timing = PasteboardTiming::standardTiming())
    {
        return outcomeOf(service.pasteTransient(text, bundle, timing));
    }
};

TEST_F(PasteTransientTest, PastesAfterTheDelaysAndRestoresTheClipboard1300MillisecondsLater)
{
    fillClipboardWithImageAndFiles();
    QString clipboardAtPaste;
    keyboard.onShortcut = [&](quint16) { clipboardAtPaste = pasteboard.text().value_or(QString()); };

    const auto outcome = paste(QStringLiteral(" result "));
    ASSERT_TRUE(outcome.value);
    EXPECT_EQ(clipboardAtPaste, QStringLiteral(" result "));
    EXPECT_EQ(keyboard.pressTimes(PasteboardService::keyV), QList<qint64>{180 + 180});
    EXPECT_EQ(outcome.finishedAt, 360 + 20 + 1300);
    EXPECT_EQ(pasteboard.contents(), original);
    EXPECT_EQ(capture.log, (QStringList{"suppress 3500", "finish restored"}));
}

TEST_F(PasteTransientTest, ACopyMadeMeanwhileByTheUserStays)
{
    fillClipboardWithImageAndFiles();
    ClockTimer userCopy = clock.schedule(1000ms, [&] { pasteboard.copyText(QStringLiteral("mine")); });
    paste(QStringLiteral("result"));
    EXPECT_EQ(pasteboard.text(), QStringLiteral("mine"));
    EXPECT_EQ(capture.log.last(), QStringLiteral("finish foreign"));

    // Nothing at all on the clipboard is no reason to restore either.
    ClockTimer userClear = clock.schedule(1000ms, [&] { pasteboard.clear(); });
    paste(QStringLiteral("result"));
    EXPECT_EQ(pasteboard.contents(), PasteboardSnapshot());
}

TEST_F(PasteTransientTest, FailuresLeaveTheClipboardAsTheUserNeedsIt)
{
    fillClipboardWithImageAndFiles();
    const qint64 before = pasteboard.changeCount();
    EXPECT_EQ(paste(QString()).error, Kind::emptyText);
    EXPECT_TRUE(capture.log.isEmpty());

    EXPECT_EQ(paste(QStringLiteral("x"), QStringLiteral("org.example.gone")).error,
              Kind::pasteTargetUnavailable);
    workspace.activationSucceeds = false;
    EXPECT_EQ(paste(QStringLiteral("x")).error, Kind::pasteTargetUnavailable);
    EXPECT_EQ(pasteboard.changeCount(), before);
    EXPECT_EQ(capture.log.count(QStringLiteral("finish restored")), 2);
    EXPECT_TRUE(keyboard.events.isEmpty());

    // A shortcut that cannot be sent leaves the text on the clipboard for the user, with no restore.
    workspace.activationSucceeds = true;
    permissions.accessibility = false;
    capture.log.clear();
    EXPECT_EQ(paste(QStringLiteral("result")).error, Kind::pasteEventFailed);
    EXPECT_EQ(pasteboard.text(), QStringLiteral("result"));
    EXPECT_EQ(capture.log, QStringList{"suppress 3500"});
}

TEST_F(PasteTransientTest, QuickTimingPastesAtOnceAndRestoresAfter60Milliseconds)
{
    fillClipboardWithImageAndFiles();
    modifiers.heldUntil = 10s;
    const auto outcome = paste(QStringLiteral("fixed"), std::nullopt, PasteboardTiming::quickTiming());
    EXPECT_EQ(keyboard.pressTimes(PasteboardService::keyV), QList<qint64>{0});
    EXPECT_EQ(outcome.finishedAt, 20 + 60);
    EXPECT_EQ(pasteboard.contents(), original);
}

TEST_F(PasteTransientTest, AccessibilityReplacementSkipsBrowserContentAndEmptyText)
{
    const AccessibilityElement field = tree.addEditor(window, QStringLiteral("AXTextField"), {0, 0, 200, 20});
    tree.set(application, QStringLiteral("AXFocusedUIElement"), field);

    const auto replace = [this](const QString& text) {
        return outcomeOf(service.replaceSelectedTextViaAccessibility(text)).value;
    };
    EXPECT_EQ(replace(QString()), false);
    EXPECT_TRUE(tree.setCalls().isEmpty());
    EXPECT_EQ(replace(QStringLiteral("  ")), true);
    EXPECT_EQ(tree.setCalls().last().first, QStringLiteral("AXSelectedText"));
    tree.node(field).extraNames << QStringLiteral("ChromeAXNodeId");
    EXPECT_EQ(replace(QStringLiteral("x")), false);
}

class PasteAIReplyTest : public ExchangeHarness {
protected:
    PasteAIReplyTest()
    {
        webArea = tree.add(window, QStringLiteral("AXWebArea"));
        editor =
            tree.addEditor(webArea, QStringLiteral("AXTextArea"), {0, 800, 600, 40}, QStringLiteral("draft"));
        tree.set(editor, QStringLiteral("AXNumberOfCharacters"), 5.0);
        tree.setSearchResults(webArea, {editor});
    }

    Outcome<bool> paste(const QString& text) { return outcomeOf(service.pasteAIReply(text, target)); }

    // The editor takes the paste the way a chat box does.
    void editorTakesPaste(bool changesValue)
    {
        keyboard.onShortcut = [this, changesValue](quint16) {
            if (changesValue) {
                tree.set(editor, QStringLiteral("AXValue"),
                         QStringLiteral("draft") + pasteboard.text().value());
            }
        };
    }

    AccessibilityElement webArea;
    AccessibilityElement editor;
};

TEST_F(PasteAIReplyTest, PastesIntoTheChatEditorAndConfirmsTheChange)
{
    fillClipboardWithImageAndFiles();
    editorTakesPaste(true);
    const auto outcome = paste(QStringLiteral("reply"));
    ASSERT_TRUE(outcome.value);
    EXPECT_EQ(tree.node(editor).attributes.value(QStringLiteral("AXValue")),
              AccessibilityValue(QStringLiteral("draftreply")));
    EXPECT_EQ(keyboard.pressTimes(PasteboardService::keyV), QList<qint64>{0});
    EXPECT_EQ(pasteboard.contents(), original);
    EXPECT_EQ(capture.log, (QStringList{"suppress 3500", "finish restored"}));
    EXPECT_EQ(focus.restoringProcessIdentifier(), std::nullopt);
    EXPECT_TRUE(focus.replyEditor().isNull());
}

TEST_F(PasteAIReplyTest, TheTargetGets45RoundsOf20MillisecondsToComeForward)
{
    fillClipboardWithImageAndFiles();
    workspace.activationTakesEffect = false;
    const auto outcome = paste(QStringLiteral("reply"));
    EXPECT_EQ(outcome.error, Kind::pasteTargetUnavailable);
    EXPECT_EQ(outcome.finishedAt, 45 * 20);
    EXPECT_EQ(pasteboard.contents(), original);
    EXPECT_EQ(focus.restoringProcessIdentifier(), std::nullopt);
    EXPECT_EQ(capture.log.last(), QStringLiteral("finish restored"));
}

TEST_F(PasteAIReplyTest, TheEditorGets16RoundsOf25MillisecondsToTakeTheFocus)
{
    tree.node(editor).ignoresFocus = true;
    const auto outcome = paste(QStringLiteral("reply"));
    EXPECT_EQ(outcome.error, Kind::pasteEditorUnavailable);
    EXPECT_EQ(outcome.finishedAt, 16 * 25);
    EXPECT_TRUE(keyboard.events.isEmpty());

    // A shortcut that cannot be sent is a paste event failure, and the paste lets go of the target.
    tree.node(editor).ignoresFocus = false;
    keyboard.postingSucceeds = false;
    EXPECT_EQ(paste(QStringLiteral("reply")).error, Kind::pasteEventFailed);
    EXPECT_EQ(focus.restoringProcessIdentifier(), std::nullopt);
}

TEST_F(PasteAIReplyTest, AnUnchangedEditorIsPolled60TimesAndThenReportedNotAppliedWithoutOverwritingAUserCopy)
{
    fillClipboardWithImageAndFiles();
    editorTakesPaste(false);
    const auto outcome = paste(QStringLiteral("reply"));
    EXPECT_EQ(outcome.error, Kind::pasteNotApplied);
    EXPECT_EQ(outcome.finishedAt, 20 + 60 * 20);
    EXPECT_EQ(pasteboard.contents(), original);

    // A clipboard changed by the user meanwhile is not overwritten on failure.
    keyboard.onShortcut = [this](quint16) { pasteboard.copyText(QStringLiteral("user copy")); };
    EXPECT_EQ(paste(QStringLiteral("reply")).error, Kind::pasteNotApplied);
    EXPECT_EQ(pasteboard.text(), QStringLiteral("user copy"));
}

TEST_F(PasteAIReplyTest, AnEditorWithoutValueOrCountIsNeverConfirmed)
{
    tree.node(editor).attributes.remove(QStringLiteral("AXValue"));
    tree.node(editor).attributes.remove(QStringLiteral("AXNumberOfCharacters"));
    const auto outcome = paste(QStringLiteral("reply"));
    EXPECT_EQ(outcome.error, Kind::pasteNotApplied);
    EXPECT_EQ(outcome.finishedAt, 20);
}

TEST(AIReplyEditorStateTest, ConfirmationFollowsWhatTheEditorStillReports)
{
    using S = AIReplyEditorState;
    const S before{QStringLiteral("a"), 1};
    EXPECT_TRUE((S{QStringLiteral("ab"), 2}.showsChangeSince(before)));
    EXPECT_TRUE((S{QStringLiteral("x"), std::nullopt}.showsChangeSince(S{std::nullopt, 1})));
    // The value reads the same, the count moved.
    EXPECT_TRUE((S{QStringLiteral("a"), 2}.showsChangeSince(before)));
    EXPECT_FALSE((S{QStringLiteral("a"), 1}.showsChangeSince(before)));
    EXPECT_TRUE((S{QStringLiteral("a"), 7}.showsChangeSince(S{QStringLiteral("a"), std::nullopt})));
    // The value vanished but a count is left.
    EXPECT_TRUE((S{std::nullopt, 1}.showsChangeSince(before)));
    EXPECT_FALSE((S{std::nullopt, std::nullopt}.showsChangeSince(before)));
    // Same value and no count now: only a count before can tell.
    EXPECT_TRUE((S{QStringLiteral("a"), std::nullopt}.showsChangeSince(before)));
    EXPECT_FALSE(
        (S{QStringLiteral("a"), std::nullopt}.showsChangeSince(S{QStringLiteral("a"), std::nullopt})));
    EXPECT_TRUE((S{std::nullopt, 3}.showsChangeSince(S{std::nullopt, 2})));
    EXPECT_FALSE((S{std::nullopt, 2}.showsChangeSince(S{std::nullopt, 2})));
}

} // namespace
