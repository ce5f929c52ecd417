#include "AppStateHarness.h"
#include "core/ClipboardHistoryControl.h"
#include "platform/SystemSurfaceSignals.h"

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {

class AppStateTest : public ::testing::Test, protected AppStateHarness {
protected:
    AppStateTest()
    {
        QObject::connect(&state, &MivoraAppState::statusChanged, [this] {
            statuses.append(state.status());
            statusTimes.append(clock.elapsed().count());
        });
    }

    void setLanguage(UiLanguage language)
    {
        configure([language](MivoraSettings& s) { s.uiLanguage = language; });
    }

    QStringList statusTexts() const
    {
        QStringList texts;
        for (const auto& s : statuses) {
            texts.append(s.text);
        }
        return texts;
    }

    QList<ActionStatus> statuses;
    QList<long> statusTimes;
};

TEST_F(AppStateTest, StatusResetsToIdleExactlyAfterItsDelay)
{
    state.setStatus(ActionStatus::done("ok"));
    state.scheduleStatusReset(state.status());
    clock.advance(899ms);
    EXPECT_EQ(state.status(), ActionStatus::done("ok"));
    clock.advance(1ms);
    EXPECT_EQ(state.status(), ActionStatus::idle());
    EXPECT_EQ(statusTimes.last(), 900);

    state.setStatus(ActionStatus::failed("bad"));
    state.scheduleStatusReset(state.status());
    clock.advance(1299ms);
    EXPECT_EQ(state.status().kind, ActionStatus::Kind::failed);
    clock.advance(1ms);
    EXPECT_EQ(state.status(), ActionStatus::idle());
    EXPECT_EQ(clock.pendingCount(), 0u);
}

TEST_F(AppStateTest, NewerStatusCancelsThePendingReset)
{
    // Two equal "done" statuses half a second apart: the reset counts from the second.
    state.setStatus(ActionStatus::done("same"));
    state.scheduleStatusReset(state.status());
    clock.advance(500ms);
    state.setStatus(ActionStatus::done("same"));
    state.scheduleStatusReset(state.status());
    clock.advance(899ms);
    EXPECT_EQ(state.status(), ActionStatus::done("same"));
    clock.advance(1ms);
    EXPECT_EQ(state.status(), ActionStatus::idle());
    EXPECT_EQ(statusTimes.last(), 1400);

    // A running status published in between is never reset.
    state.setStatus(ActionStatus::done("x"));
    state.scheduleStatusReset(state.status());
    state.setStatus(ActionStatus::running("busy"));
    state.scheduleStatusReset(state.status());
    clock.advance(10s);
    EXPECT_EQ(state.status(), ActionStatus::running("busy"));

    // A status changed without scheduling is left alone by the old reset.
    state.setStatus(ActionStatus::done("first"));
    state.scheduleStatusReset(state.status());
    state.setStatus(ActionStatus::done("second"));
    clock.advance(10s);
    EXPECT_EQ(state.status(), ActionStatus::done("second"));
}

TEST_F(AppStateTest, SampleRunOfAStyleNeverTouchesOtherApplications)
{
    state.setSampleText("hello there");
    backend.duration = 250ms;
    state.run(QuickAction("style:polite"), false, true);
    EXPECT_EQ(state.status(), ActionStatus::running("Polite running"));
    clock.advance(249ms);
    EXPECT_EQ(state.status().kind, ActionStatus::Kind::running);
    clock.advance(1ms);

    EXPECT_EQ(statusTexts(), (QStringList{"Polite running", "Polite running", "HELLO THERE"}));
    EXPECT_EQ(state.status(), ActionStatus::done("HELLO THERE"));
    EXPECT_TRUE(exchange.reads.isEmpty());
    EXPECT_TRUE(exchange.pastes.isEmpty());
    ASSERT_EQ(backend.calls.size(), 1);
    EXPECT_EQ(backend.calls[0].input, "hello there");
    EXPECT_EQ(backend.calls[0].targetLanguage, "English");
    EXPECT_EQ(backend.calls[0].styles, state.promptStyles());
    EXPECT_EQ(state.latestOutput(), "HELLO THERE");
    EXPECT_EQ(state.sampleText(), "HELLO THERE");
    clock.advance(900ms);
    EXPECT_EQ(state.status(), ActionStatus::idle());
}

TEST_F(AppStateTest, PastedStyleRunReadsSelectsAllAndPastesWithStandardTiming)
{
    setLanguage(UiLanguage::ru);
    exchange.selection = "text";
    exchange.readDuration = 600ms;
    exchange.pasteDuration = 1500ms;
    state.run(QuickAction("style:friendly"), true, false);
    clock.advance(600ms);
    clock.advance(1500ms);

    // The third status is the fixed title with the English word, whatever the interface language.
    EXPECT_EQ(statusTexts(), (QStringList{"Выполняю: Дружелюбно", "Читаю выделение", "Дружелюбно running",
                                          "Вставляю", "Вставлено"}));
    ASSERT_EQ(exchange.reads.size(), 1);
    EXPECT_TRUE(exchange.reads[0].selectAllBeforeCopy);
    EXPECT_TRUE(exchange.reads[0].includeFocusedTextFallback);
    EXPECT_EQ(exchange.reads[0].timing, PasteboardTiming::standardTiming());
    ASSERT_EQ(exchange.pastes.size(), 1);
    EXPECT_EQ(exchange.pastes[0].text, "TEXT");
    EXPECT_FALSE(exchange.pastes[0].target.has_value());
    EXPECT_EQ(exchange.pastes[0].timing, PasteboardTiming::standardTiming());
    EXPECT_EQ(state.sampleText(), "Hi, how are you?");

    MivoraSettings s = state.settings();
    s.autoSelectAllBeforeAction = false;
    state.setSettings(s);
    state.run(QuickAction("translate"), true, false);
    clock.advance(5s);
    EXPECT_FALSE(exchange.reads[1].selectAllBeforeCopy);
}

TEST_F(AppStateTest, FailuresKeepOutputsAndResetAfterTheirDelay)
{
    state.setSampleText("keep");
    state.run(QuickAction("style:short"), false, true);
    ASSERT_EQ(state.latestOutput(), "KEEP");

    backend.error = "Backend returned HTTP 500.";
    state.run(QuickAction("style:short"), false, true);
    EXPECT_EQ(state.status(), ActionStatus::failed("Backend returned HTTP 500."));
    EXPECT_EQ(state.latestOutput(), "KEEP");
    EXPECT_EQ(state.sampleText(), "KEEP");
    const long failedAt = clock.elapsed().count();
    clock.advance(1300ms);
    EXPECT_EQ(state.status(), ActionStatus::idle());
    EXPECT_EQ(statusTimes.last() - failedAt, 1300);

    backend.error.reset();
    exchange.readError = "No selected text.";
    state.run(QuickAction("style:short"), true, false);
    EXPECT_EQ(state.status(), ActionStatus::failed("No selected text."));
    EXPECT_TRUE(exchange.pastes.isEmpty());

    exchange.readError.reset();
    exchange.selection = "abc";
    exchange.pasteError = "Could not send paste shortcut.";
    state.run(QuickAction("style:short"), true, false);
    EXPECT_EQ(state.status(), ActionStatus::failed("Could not send paste shortcut."));
    EXPECT_EQ(state.latestOutput(), "KEEP");
}

TEST_F(AppStateTest, LayoutSampleRunShowsTheFixedText)
{
    state.setSampleText("ghbdtn");
    state.run(QuickAction("layout"), false, true);
    EXPECT_EQ(state.status(), ActionStatus::done("привет"));
    EXPECT_EQ(statusTexts(), (QStringList{"Layout running", "Раскладка running", "привет"}));
    EXPECT_EQ(state.sampleText(), "привет");
    EXPECT_EQ(state.latestOutput(), "привет");
    EXPECT_TRUE(backend.calls.isEmpty());
    EXPECT_EQ(sources.selectCalls(), 0);
}

TEST_F(AppStateTest, LayoutHotkeyRunIsQuietAndPrefersAccessibility)
{
    exchange.accessibleSelection = "ghbdtn";
    state.run(QuickAction("layout"), true, false);
    EXPECT_EQ(statusTexts(), (QStringList{""}));
    EXPECT_EQ(state.status(), ActionStatus::idle());
    EXPECT_EQ(exchange.replacements, (QStringList{"привет"}));
    EXPECT_TRUE(exchange.pastes.isEmpty());
    EXPECT_TRUE(exchange.reads.isEmpty());

    // Replacement refused: falls back to a quick paste; no accessible text: quick copy without select-all.
    exchange.replaceSucceeds = false;
    state.run(QuickAction("layout"), true, false);
    ASSERT_EQ(exchange.pastes.size(), 1);
    EXPECT_EQ(exchange.pastes[0].timing, PasteboardTiming::quickTiming());

    exchange.accessibleSelection = "  \n";
    exchange.selection = "руддщ";
    state.run(QuickAction("layout"), true, false);
    ASSERT_EQ(exchange.reads.size(), 1);
    EXPECT_FALSE(exchange.reads[0].selectAllBeforeCopy);
    EXPECT_FALSE(exchange.reads[0].includeFocusedTextFallback);
    EXPECT_EQ(exchange.reads[0].timing, PasteboardTiming::quickTiming());
    EXPECT_EQ(exchange.pastes.last().text, "hello");
    EXPECT_EQ(state.status(), ActionStatus::idle());
    for (const auto& s : statuses) {
        EXPECT_NE(s.kind, ActionStatus::Kind::running);
    }
}

TEST_F(AppStateTest, SettingsAssignmentSavesAndRefreshesDerivedFields)
{
    MivoraSettings s = state.settings();
    s.targetLanguage = "German";
    s.quickMenuActions = {" fix ", "layout"};
    s.promptStyles.append(PromptStyle{"custom-1", "Mine", "p", "Not assigned", true});
    const int writesBefore = defaults.writeCount();
    state.setSettings(s);
    EXPECT_GT(defaults.writeCount(), writesBefore);
    EXPECT_EQ(state.targetLanguage(), "German");
    EXPECT_EQ(state.quickActions(),
              (QList<QuickAction>{QuickAction("style:original"), QuickAction("layout")}));
    EXPECT_EQ(state.promptStyles().last().id, "custom-1");

    // A second state made from the same store sees what was saved.
    MivoraAppState reloaded({clock, store, layout, backend, exchange});
    EXPECT_EQ(reloaded.targetLanguage(), "German");
    EXPECT_EQ(reloaded.promptStyles().last().name, "Mine");
}

TEST_F(AppStateTest, TitlesFollowTheIdNotTheStoredName)
{
    PromptStyle renamed = state.promptStyles()[1];
    ASSERT_EQ(renamed.id, "friendly");
    renamed.name = "Warm";
    state.updatePromptStyle(renamed);
    EXPECT_EQ(state.title(QuickAction("style:friendly")), "Friendly");
    EXPECT_EQ(state.title(QuickAction("translate")), "Translate");
    EXPECT_EQ(state.title(QuickAction("style:unknown")), "Действие");
    setLanguage(UiLanguage::ru);
    EXPECT_EQ(state.title(QuickAction("style:original")), "Исправить");
    EXPECT_EQ(state.title(QuickAction("clipboard")), "Буфер");
    EXPECT_EQ(state.styleTitle(PromptStyle{"custom-x", "Mine", "", "", true}), "Mine");
}

TEST_F(AppStateTest, CustomPromptStylesJoinAndLeaveTheQuickMenu)
{
    setLanguage(UiLanguage::ru);
    state.addPromptStyle();
    const PromptStyle added = state.settings().promptStyles.last();
    EXPECT_TRUE(added.id.startsWith("custom-"));
    EXPECT_EQ(added.id.size(), 15);
    EXPECT_EQ(added.name, "Новый стиль");
    EXPECT_EQ(state.selectedSettingsPage(), SettingsPage::styles);
    const QString actionId = "style:" + added.id;
    EXPECT_EQ(state.settings().quickMenuActions.last(), actionId);
    EXPECT_EQ(state.settings().quickMenuOrder.last(), actionId);

    setLanguage(UiLanguage::en);
    EXPECT_EQ(state.settings().promptStyles.last().name, "Новый стиль");

    // Built-ins cannot be deleted, even after an edit.
    PromptStyle fix = state.settings().promptStyles.first();
    fix.prompt = "edited";
    state.updatePromptStyle(fix);
    state.deletePromptStyle(fix);
    EXPECT_EQ(state.settings().promptStyles.first().prompt, "edited");

    // Entries are compared in normal form: "style:<id>" goes, while a bare custom id is another action.
    MivoraSettings s = state.settings();
    s.quickMenuOrder.append(added.id);
    state.setSettings(s);
    state.deletePromptStyle(added);
    EXPECT_FALSE(state.settings().quickMenuActions.contains(actionId));
    EXPECT_FALSE(state.settings().quickMenuOrder.contains(actionId));
    EXPECT_TRUE(state.settings().quickMenuOrder.contains(added.id));

    const int writes = defaults.writeCount();
    state.updatePromptStyle(added);
    EXPECT_EQ(defaults.writeCount(), writes);
}

TEST_F(AppStateTest, CustomReplyStylesStayOutOfTheQuickMenu)
{
    const QStringList menuBefore = state.settings().quickMenuActions;
    state.addAIReplyStyle();
    const AIReplyStyle added = state.settings().aiReplyStyles.last();
    EXPECT_TRUE(added.id.startsWith("custom-reply-"));
    EXPECT_EQ(added.name, "New Reply Style");
    EXPECT_EQ(state.selectedSettingsPage(), SettingsPage::aiReply);
    EXPECT_EQ(state.settings().quickMenuActions, menuBefore);

    state.deleteAIReplyStyle(state.settings().aiReplyStyles.first());
    EXPECT_EQ(state.settings().aiReplyStyles.size(), 18);
    state.deleteAIReplyStyle(added);
    EXPECT_EQ(state.settings().aiReplyStyles.size(), 17);
}

TEST_F(AppStateTest, ClearingTheClipboardHistoryReportsDone)
{
    struct History : ClipboardHistoryControl {
        int clears = 0;
        void clearHistory() override { ++clears; }
    } history;
    state.setClipboardHistory(&history);
    state.clearClipboardHistory();
    EXPECT_EQ(history.clears, 1);
    EXPECT_EQ(state.status(), ActionStatus::done("Clipboard history cleared"));
    clock.advance(900ms);
    EXPECT_EQ(state.status(), ActionStatus::idle());
}

TEST_F(AppStateTest, SurfaceObserverPollsThePlatformSignal)
{
    struct Signals : SystemSurfaceSignals {
        bool reduce = false;
        bool reduceTransparency() const override { return reduce; }
        std::optional<int> processGlassDiffusion() const override { return std::nullopt; }
        std::optional<int> globalGlassDiffusion() const override { return std::nullopt; }
    } surface;
    MivoraAppState observed({clock, store, layout, backend, exchange, &surface});
    int changes = 0;
    QObject::connect(&observed, &MivoraAppState::systemSurfaceModeChanged, [&] { ++changes; });
    observed.startSystemSurfaceObserver();
    surface.reduce = true;
    clock.advance(749ms);
    EXPECT_EQ(observed.systemSurfaceMode(), SurfaceMode::translucent);
    clock.advance(1ms);
    EXPECT_EQ(observed.systemSurfaceMode(), SurfaceMode::solid);
    clock.advance(7500ms);
    EXPECT_EQ(changes, 1);
}

} // namespace
