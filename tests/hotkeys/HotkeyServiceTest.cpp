#include "hotkeys/HotkeyService.h"

#include "AppStateHarness.h"
#include "FakeAccessibilityTree.h"
#include "FakeApplicationWorkspace.h"
#include "FakeHotkeyRegistrar.h"
#include "FakePrimarySelection.h"
#include "exchange/AccessibilityTextReader.h"
#include "exchange/FocusService.h"
#include "exchange/QuietSelectionReader.h"
#include "hotkeys/HotkeyPanelTargets.h"
#include "hotkeys/HotkeyWindowTargets.h"
#include "hotkeys/ParsedHotkey.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

using namespace std::chrono_literals;
using Kind = RegisteredHotkeyAction::Kind;

namespace {

struct RecordingPanels : HotkeyPanelTargets {
    QStringList calls;
    void toggleQuickPanel() override { calls << "quick"; }
    void toggleClipboardPanel() override { calls << "clipboard"; }
    void showClipboardPanel() override { calls << "show clipboard"; }
    void showAssistant(const QString& context) override { calls << "assistant:" + context; }
    void showReply(const QString& message, const AIReplyStyle& style, const QString& language) override
    {
        calls << "reply:" + message + ":" + style.id + ":" + language;
    }
    void showTranslationPreview() override { calls << "preview"; }
};

struct RecordingWindows : HotkeyWindowTargets {
    QStringList calls;
    bool popOut = false;
    void toggleBuiltInDisplay() override { calls << "display"; }
    void swapFocusedWindow(WindowSwapDirection d) override { calls << "swap:" + QString::number(int(d)); }
    void tileAllWindows() override { calls << "tileAll"; }
    void tileFocusedWindow(WindowTileSlot s) override { calls << "tile:" + QString::number(int(s)); }
    bool popOutActiveTabIfNeeded(WindowTileSlot s) override
    {
        calls << "popOut:" + QString::number(int(s));
        return popOut;
    }
};

class HotkeyServiceTest : public ::testing::Test, protected AppStateHarness {
protected:
    void SetUp() override
    {
        workspace.addApplication(42, "org.example.chat");
        workspace.bringToFront(42);
    }

    std::optional<quint32> idOf(Kind kind, const QString& payload = {}) const
    {
        const auto& actions = service.registeredActions();
        for (auto it = actions.cbegin(); it != actions.cend(); ++it) {
            if (it->kind == kind && it->payload == payload) {
                return it.key();
            }
        }
        return std::nullopt;
    }

    void press(quint32 id)
    {
        registrar.press(id);
        QCoreApplication::processEvents();
    }

    FakeApplicationWorkspace workspace;
    FakeAccessibilityTree tree;
    FocusService focus{workspace, tree};
    AccessibilityTextReader reader{focus, workspace, tree};
    FakePrimarySelection primary;
    QuietSelectionReader quiet{reader, focus, primary};
    FakeHotkeyRegistrar registrar;
    RecordingPanels panels;
    RecordingWindows windows;
    HotkeyService service{{registrar, workspace, focus, quiet, exchange, panels, windows}};
};

TEST_F(HotkeyServiceTest, DefaultsRegisterInPriorityOrderWithoutGaps)
{
    service.start(state);
    ASSERT_TRUE(service.isStarted());
    const auto& actions = service.registeredActions();
    // 4 fixed rows, 8 rewrite styles and 8 reply styles with hotkeys, the quick menu, 14 tiling rows.
    ASSERT_EQ(actions.size(), 4 + 8 + 8 + 1 + 14);
    EXPECT_EQ(actions.firstKey(), 1u);
    EXPECT_EQ(actions.lastKey(), quint32(actions.size()));
    EXPECT_EQ(actions.value(1), (RegisteredHotkeyAction{Kind::assistant, {}}));
    EXPECT_EQ(actions.value(4), (RegisteredHotkeyAction{Kind::translationPreview, {}}));
    EXPECT_EQ(actions.value(5), (RegisteredHotkeyAction{Kind::style, "original"}));
    EXPECT_EQ(actions.value(13), (RegisteredHotkeyAction{Kind::reply, "original"}));
    EXPECT_EQ(actions.value(21), (RegisteredHotkeyAction{Kind::quickMenu, {}}));
    EXPECT_EQ(actions.value(22), (RegisteredHotkeyAction{Kind::windowTiling, "tileAll"}));
    // Alt+2 is the friendly style's chord.
    EXPECT_TRUE(registrar.pressChord(19 /* 2 */, HotkeyModifier::Option));
    ASSERT_EQ(registrar.registrations().size(), actions.size());
    EXPECT_EQ(registrar.registrations()[0].modifiers, HotkeyModifiers(HotkeyModifier::Option));
}

TEST_F(HotkeyServiceTest, EarlierRowsWinConflictsAndSkippedRowsUseNoId)
{
    configure([](MivoraSettings& s) {
        s.assistantHotkey = "Not assigned";
        s.clipboardHotkey = "Alt+Space";
        s.quickMenuHotkey = "alt+space";
        s.layoutHotkey = "Cmd+K";
        s.translatePreviewHotkey = "command+k";
        s.windowTilingEnabled = false;
    });
    service.start(state);
    EXPECT_EQ(service.registeredActions().value(1), (RegisteredHotkeyAction{Kind::clipboard, {}}));
    EXPECT_EQ(service.registeredActions().value(2), (RegisteredHotkeyAction{Kind::layout, {}}));
    EXPECT_EQ(service.registeredActions().value(3), (RegisteredHotkeyAction{Kind::style, "original"}));
    EXPECT_FALSE(idOf(Kind::quickMenu));
    EXPECT_FALSE(idOf(Kind::translationPreview));
    // Tiling off takes the built-in display chord with it.
    EXPECT_FALSE(idOf(Kind::windowTiling, "builtInDisplay"));
}

TEST_F(HotkeyServiceTest, BadTextInAMainRowStopsTheStartAndShowsTheError)
{
    configure([](MivoraSettings& s) { s.quickMenuHotkey = "Alt+Nope"; });
    service.start(state);
    EXPECT_FALSE(service.isStarted());
    EXPECT_EQ(state.status(), ActionStatus::failed("Invalid hotkey: Alt+Nope"));
    EXPECT_TRUE(service.registeredActions().isEmpty());
    EXPECT_TRUE(registrar.registrations().isEmpty());
    EXPECT_FALSE(registrar.hasPressHandler());
    clock.advance(1300ms);
    EXPECT_EQ(state.status(), ActionStatus::idle());
}

TEST_F(HotkeyServiceTest, TilingRowsAreLenientWhileMainRowsAreNot)
{
    configure([](MivoraSettings& s) {
        s.windowTilingHotkeys["topLeft"] = "Ctrl+Banana";
        s.windowTilingHotkeys.remove("topRight");
    });
    registrar.refuse(38 /* J */, HotkeyModifier::Control | HotkeyModifier::Option, 7);
    service.start(state);
    ASSERT_TRUE(service.isStarted());
    EXPECT_FALSE(idOf(Kind::windowTiling, "topLeft"));
    EXPECT_FALSE(idOf(Kind::windowTiling, "topRight"));
    EXPECT_FALSE(idOf(Kind::windowTiling, "bottomLeft"));
    const quint32 tileAll = *idOf(Kind::windowTiling, "tileAll");
    EXPECT_EQ(*idOf(Kind::windowTiling, "bottomRight"), tileAll + 1);

    // The same refusal on a main row ends the pass with the platform's status.
    service.stop();
    configure([](MivoraSettings& s) { s.layoutHotkey = "Control+Alt+J"; });
    service.start(state);
    EXPECT_FALSE(service.isStarted());
    EXPECT_EQ(state.status(), ActionStatus::failed("Could not register Control+Alt+J: 7"));

    FakeHotkeyRegistrar broken;
    broken.failInstallWith(-9);
    HotkeyService other({broken, workspace, focus, quiet, exchange, panels, windows});
    other.start(state);
    EXPECT_EQ(state.status(), ActionStatus::failed("Could not install hotkey handler: -9"));
}

TEST_F(HotkeyServiceTest, SettingsChangesReregisterAndAFailedReloadKeepsWhatCameBefore)
{
    service.start(state);
    const quint32 oldLayoutId = *idOf(Kind::layout);
    configure([](MivoraSettings& s) { s.assistantHotkey = "Not assigned"; });
    QCoreApplication::processEvents();
    EXPECT_EQ(registrar.unregisterAllCount(), 1);
    EXPECT_EQ(*idOf(Kind::layout), oldLayoutId - 1);

    configure([](MivoraSettings& s) { s.quickMenuHotkey = "???"; });
    QCoreApplication::processEvents();
    EXPECT_TRUE(service.isStarted());
    EXPECT_EQ(state.status(), ActionStatus::failed("Invalid hotkey: ???"));
    EXPECT_TRUE(idOf(Kind::style, "social").has_value());
    EXPECT_FALSE(idOf(Kind::windowTiling, "tileAll"));

    // A press of an id from before the reload reaches nothing stale.
    const int panelCalls = panels.calls.size();
    press(999);
    EXPECT_EQ(panels.calls.size(), panelCalls);
}

TEST_F(HotkeyServiceTest, ASuspensionReleasesEveryChordUntilItsLastResumeRegistersTheNewSettings)
{
    service.start(state);
    service.suspendGlobalHotkeys();
    service.suspendGlobalHotkeys();
    EXPECT_TRUE(registrar.registrations().isEmpty());
    EXPECT_FALSE(registrar.pressChord(0 /* A */, HotkeyModifier::Option));
    // What the recorder writes meanwhile stays unclaimed until the end of the suspension.
    configure([](MivoraSettings& s) { s.layoutHotkey = "Control+Alt+K"; });
    QCoreApplication::processEvents();
    service.resumeGlobalHotkeys();
    EXPECT_TRUE(registrar.registrations().isEmpty());
    service.resumeGlobalHotkeys();
    EXPECT_TRUE(
        registrar.pressChord(40 /* K */, HotkeyModifiers(HotkeyModifier::Control) | HotkeyModifier::Option));
    EXPECT_FALSE(registrar.pressChord(0 /* A */, HotkeyModifier::Option));
    service.resumeGlobalHotkeys();
    EXPECT_EQ(registrar.registrations().size(), service.registeredActions().size());
}

TEST_F(HotkeyServiceTest, PressesRunActionsOnTheRememberedTargetAndReachPanelsAndWindows)
{
    service.start(state);
    exchange.accessibleSelection = "ghbdtn";
    press(*idOf(Kind::layout));
    EXPECT_EQ(focus.rememberedBundleIdentifier(), "org.example.chat");
    EXPECT_EQ(exchange.replacements, (QStringList{"привет"}));

    exchange.selection = "hi";
    press(*idOf(Kind::style, "friendly"));
    press(*idOf(Kind::style, "translate"));
    clock.advance(10s);
    ASSERT_EQ(backend.calls.size(), 2);
    EXPECT_EQ(backend.calls[0].action.id, "style:friendly");
    EXPECT_EQ(backend.calls[1].action.id, "translate");
    EXPECT_EQ(exchange.pastes.size(), 2);

    press(*idOf(Kind::quickMenu));
    press(*idOf(Kind::clipboard));
    press(*idOf(Kind::translationPreview));
    press(*idOf(Kind::assistant));
    EXPECT_EQ(panels.calls, (QStringList{"quick", "clipboard", "preview", "assistant:"}));

    press(*idOf(Kind::windowTiling, "builtInDisplay"));
    press(*idOf(Kind::windowTiling, "swapUp"));
    press(*idOf(Kind::windowTiling, "tileAll"));
    press(*idOf(Kind::windowTiling, "fill"));
    press(*idOf(Kind::windowTiling, "leftHalf"));
    windows.popOut = true;
    press(*idOf(Kind::windowTiling, "rightHalf"));
    EXPECT_EQ(windows.calls,
              (QStringList{"display", "swap:2", "tileAll", "tile:0", "popOut:1", "tile:1", "popOut:2"}));
}

TEST_F(HotkeyServiceTest, ReplyNeedsASelectedMessage)
{
    service.start(state);
    const quint32 friendlyReply = *idOf(Kind::reply, "friendly");
    exchange.readError = "No selected text.";
    press(friendlyReply);
    EXPECT_EQ(state.status(), ActionStatus::failed("Select a message to reply to"));
    ASSERT_EQ(exchange.reads.size(), 1);
    EXPECT_EQ(exchange.reads[0].timing, PasteboardTiming::quickTiming());
    EXPECT_FALSE(exchange.reads[0].selectAllBeforeCopy);

    exchange.readError.reset();
    exchange.selection = "  how are you?\n";
    configure([](MivoraSettings& s) { s.targetLanguage = "German"; });
    QCoreApplication::processEvents();
    press(*idOf(Kind::reply, "friendly"));
    EXPECT_EQ(panels.calls.last(), "reply:how are you?:friendly:German");
}

} // namespace
