#include "ExchangeHarness.h"

using namespace std::chrono_literals;
using Kind = PasteboardServiceError::Kind;

namespace {

class ReadSelectionTest : public ExchangeHarness {
protected:
    Outcome<QString> read(bool selectAll, bool fallback, PasteboardTiming timing)
    {
        return outcomeOf(service.readSelectedTextTransient(selectAll, fallback, timing));
    }
};

TEST_F(ReadSelectionTest, NothingSelectedTriesThreeCopiesWithGrowingWaitsAndPutsTheClipboardBack)
{
    fillClipboardWithImageAndFiles();
    const auto outcome = read(false, false, PasteboardTiming::standardTiming());

    EXPECT_EQ(outcome.error, Kind::emptySelection);
    // 180 to come forward, then each copy waits 180, 300, 420 after its 20 ms key press.
    EXPECT_EQ(keyboard.pressTimes(PasteboardService::keyC), (QList<qint64>{180, 380, 700}));
    EXPECT_EQ(outcome.finishedAt, 720 + 420);
    EXPECT_EQ(pasteboard.contents(), original);
    EXPECT_EQ(capture.log, (QStringList{"suppress 3500", "finish restored"}));
    EXPECT_EQ(workspace.activations, QList<qint32>{target});
    EXPECT_EQ(workspace.activatedWindows, QList<quint64>{target * 10}) << "the window it was remembered with";
}

TEST_F(ReadSelectionTest, FoundTextComesBackUntrimmedAfterTheClipboardIsRestored)
{
    // An empty clipboard stays empty.
    selectInTarget(QStringLiteral("picked"));
    EXPECT_EQ(read(false, false, PasteboardTiming::standardTiming()).value, QStringLiteral("picked"));
    EXPECT_EQ(pasteboard.contents(), PasteboardSnapshot());
    EXPECT_EQ(pasteboard.text(), std::nullopt);

    fillClipboardWithImageAndFiles();
    selectInTarget(QStringLiteral("  hello\n"));
    const auto outcome = read(false, false, PasteboardTiming::standardTiming());
    EXPECT_EQ(outcome.value, QStringLiteral("  hello\n"));
    EXPECT_EQ(keyboard.pressTimes(PasteboardService::keyC).size(), 2) << "one copy for each read";
    EXPECT_EQ(pasteboard.contents(), original);
    EXPECT_EQ(capture.log.last(), QStringLiteral("finish restored"));
}

TEST_F(ReadSelectionTest, QuickTimingNeverWaitsForModifiersAndPollsEachCopyForUpTo120Milliseconds)
{
    modifiers.heldUntil = 10s;
    EXPECT_EQ(read(false, false, PasteboardTiming::quickTiming()).error, Kind::emptySelection);
    // Each poll ends on the first 2 ms step past its 120 ms deadline, which starts at the key release.
    EXPECT_EQ(keyboard.pressTimes(PasteboardService::keyC), (QList<qint64>{0, 142, 284}));
    EXPECT_EQ(modifiers.queries, 0);

    // The first non-blank text ends the poll.
    const qint64 start = clock.elapsed().count();
    std::optional<ClockTimer> lateCopy;
    keyboard.onShortcut = [&](quint16) {
        lateCopy.emplace(clock.schedule(31ms, [&] { pasteboard.copyText(QStringLiteral("slow")); }));
    };
    const auto outcome = read(false, false, PasteboardTiming::quickTiming());
    EXPECT_EQ(outcome.value, QStringLiteral("slow"));
    EXPECT_EQ(outcome.finishedAt - start, 20 + 32);
}

TEST_F(ReadSelectionTest, BlankSelectionFallsBackToTheFocusedTextOnlyWhenAsked)
{
    selectInTarget(QStringLiteral(" \n\t"));
    const AccessibilityElement field =
        tree.addEditor(window, QStringLiteral("AXTextArea"), {0, 0, 200, 40}, QStringLiteral("whole draft"));
    tree.set(application, QStringLiteral("AXFocusedUIElement"), field);

    const auto withoutFallback = read(false, false, PasteboardTiming::standardTiming());
    EXPECT_EQ(withoutFallback.error, Kind::emptySelection);
    EXPECT_EQ(keyboard.pressTimes(PasteboardService::keyC).size(), 3);

    // No AXSelectedText at all: the value stands in.
    EXPECT_EQ(read(false, true, PasteboardTiming::standardTiming()).value, QStringLiteral("whole draft"));

    // An empty AXSelectedText is an answer, not an absence.
    tree.set(field, QStringLiteral("AXSelectedText"), QString());
    EXPECT_EQ(read(false, true, PasteboardTiming::standardTiming()).error, Kind::emptySelection);
}

// Chords pressed in quick succession: a paste and a second read start while the first read's copy holds
// the clipboard. Each waits its turn, so none takes another's transient contents for the user's.
TEST_F(ReadSelectionTest, UsesThatOverlapTakeTurnsAndEachPutsTheUsersClipboardBack)
{
    fillClipboardWithImageAndFiles();
    selectInTarget(QStringLiteral("picked"));
    const auto first =
        begin(service.readSelectedTextTransient(false, false, PasteboardTiming::quickTiming()));
    clock.advance(10ms);
    const auto paste =
        begin(service.pasteTransient(QStringLiteral("fixed"), std::nullopt, PasteboardTiming::quickTiming()));
    clock.advance(5ms);
    const auto second =
        begin(service.readSelectedTextTransient(false, false, PasteboardTiming::standardTiming()));
    clock.runUntilIdle();

    EXPECT_EQ(first->value, QStringLiteral("picked"));
    EXPECT_EQ(paste->value, true);
    EXPECT_EQ(second->value, QStringLiteral("picked"));
    EXPECT_LT(first->finishedAt, paste->finishedAt);
    EXPECT_LT(paste->finishedAt, second->finishedAt);
    EXPECT_EQ(pasteboard.contents(), original);
    const QStringList turn{"suppress 3500", "finish restored"};
    EXPECT_EQ(capture.log, turn + turn + turn);
}

TEST_F(ReadSelectionTest, SelectAllGoesFirstAndItsWaitPrecedesTheCopy)
{
    selectInTarget(QStringLiteral("all of it"));
    const auto outcome = read(true, false, PasteboardTiming::standardTiming());
    EXPECT_EQ(outcome.value, QStringLiteral("all of it"));
    EXPECT_EQ(keyboard.pressTimes(PasteboardService::keyA), QList<qint64>{180});
    EXPECT_EQ(keyboard.pressTimes(PasteboardService::keyC), QList<qint64>{180 + 20 + 120});
}

TEST_F(ReadSelectionTest, HeldModifiersDelayTheShortcutAtMost560Milliseconds)
{
    selectInTarget(QStringLiteral("x"));
    modifiers.heldUntil = 180ms + 1000ms;
    read(false, false, PasteboardTiming::standardTiming());
    EXPECT_EQ(keyboard.pressTimes(PasteboardService::keyC), QList<qint64>{180 + 560});
}

TEST_F(ReadSelectionTest, ModifierWaitEndsWithTheFirstCheckThatFindsThemReleased)
{
    selectInTarget(QStringLiteral("x"));
    modifiers.heldUntil = 180ms + 100ms;
    read(false, false, PasteboardTiming::standardTiming());
    EXPECT_EQ(keyboard.pressTimes(PasteboardService::keyC), QList<qint64>{180 + 105});
}

TEST_F(ReadSelectionTest, ShortcutFailuresAreCopyFailuresWithTheClipboardPutBack)
{
    fillClipboardWithImageAndFiles();
    keyboard.postingSucceeds = false;
    EXPECT_EQ(read(false, true, PasteboardTiming::standardTiming()).error, Kind::copyEventFailed);
    EXPECT_EQ(pasteboard.contents(), original);
    EXPECT_EQ(capture.log.last(), QStringLiteral("finish restored"));

    keyboard.postingSucceeds = true;
    permissions.accessibility = false;
    EXPECT_EQ(read(true, true, PasteboardTiming::standardTiming()).error, Kind::copyEventFailed);
    EXPECT_TRUE(keyboard.events.isEmpty());
    EXPECT_EQ(pasteboard.contents(), original);
}

TEST_F(ReadSelectionTest, AnActiveTargetIsNotActivatedAgainAndAGoneOneIsLookedUpByIdentifier)
{
    selectInTarget(QStringLiteral("x"));
    workspace.bringToFront(target);
    workspace.activations.clear();
    read(false, false, PasteboardTiming::standardTiming());
    EXPECT_TRUE(workspace.activations.isEmpty());

    // The remembered process quit and the application came back under another one.
    workspace.bringToFront(FakeApplicationWorkspace::ownProcess);
    workspace.removeApplication(target);
    workspace.addApplication(77, QStringLiteral("org.example.chat"));
    read(false, false, PasteboardTiming::standardTiming());
    EXPECT_EQ(workspace.activations, QList<qint32>{77});
    EXPECT_EQ(workspace.activatedWindows, QList<quint64>{0});
}

} // namespace
