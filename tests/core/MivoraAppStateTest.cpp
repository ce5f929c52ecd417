#include "AppStateHarness.h"
#include "AwaitTask.h"
#include "core/ClipboardHistoryControl.h"
#include "platform/SystemSurfaceSignals.h"

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {

class AppStateTest : public ::testing::Test, protected AppStateHarness {};

TEST_F(AppStateTest, RunsLeaveTheirOutputOnTheState)
{
    QStringList announced;
    QObject::connect(&state, &MivoraAppState::latestOutputChanged, [&] { announced << "output"; });
    QObject::connect(&state, &MivoraAppState::sampleTextChanged, [&] { announced << "sample"; });
    QObject::connect(&state, &MivoraAppState::statusChanged, [&] { announced << state.status().text; });
    state.setSampleText("ghbdtn");
    AwaitTask::run(state.runToEnd(QuickAction("layout"), false, true));
    EXPECT_EQ(state.latestOutput(), "привет");
    EXPECT_EQ(state.sampleText(), "привет");
    EXPECT_EQ(announced,
              (QStringList{"sample", "Layout running", "Раскладка running", "output", "sample", "привет"}));

    state.run(QuickAction("style:short"), false, false);
    EXPECT_EQ(state.latestOutput(), "ПРИВЕТ");
    EXPECT_EQ(state.sampleText(), "привет");
}

TEST_F(AppStateTest, EachEditIsAnnouncedOnceAndAddingAStyleOpensItsPage)
{
    int announcements = 0;
    QObject::connect(&state, &MivoraAppState::promptStylesChanged, [&] { ++announcements; });
    QObject::connect(&state, &MivoraAppState::settingsChanged, [&] { ++announcements; });
    state.addPromptStyle();
    EXPECT_EQ(state.selectedSettingsPage(), SettingsPage::styles);
    EXPECT_EQ(state.quickActions().last(), QuickAction("style:" + state.promptStyles().last().id));
    EXPECT_EQ(announcements, 2);
    state.addAIReplyStyle();
    EXPECT_EQ(state.selectedSettingsPage(), SettingsPage::aiReply);
    EXPECT_EQ(state.aiReplyStyles().size(), 18);
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
    configure([](MivoraSettings& s) { s.uiLanguage = UiLanguage::ru; });
    EXPECT_EQ(state.title(QuickAction("style:original")), "Исправить");
    EXPECT_EQ(state.title(QuickAction("clipboard")), "Буфер");
    EXPECT_EQ(state.styleTitle(PromptStyle{"custom-x", "Mine", "", "", true}), "Mine");
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
