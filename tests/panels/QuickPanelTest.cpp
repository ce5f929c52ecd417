#include "AppStateHarness.h"
#include "FakeAccessibilityTree.h"
#include "FakeApplicationWorkspace.h"
#include "FakeInputEventMonitor.h"
#include "FakePrimarySelection.h"
#include "exchange/AccessibilityTextReader.h"
#include "exchange/FocusService.h"
#include "exchange/QuietSelectionReader.h"
#include "hotkeys/HotkeyPanelTargets.h"
#include "panels/FloatingButtonController.h"
#include "panels/QuickPanelController.h"
#include "panels/SelectionTriggerService.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

using namespace std::chrono_literals;
using Kind = MonitoredInputEvent::Kind;

namespace {

struct FakeSurface : QuickPanelSurface, FloatingButtonSurface {
    bool shown = false;
    QList<bool> placements;
    void orderFront(bool placeNearMouse) override { shown = true, placements << placeNearMouse; }
    void orderOut() override { shown = false; }
    bool isShown() const override { return shown; }
    const void* windowIdentity() const override { return this; }
};

struct RecordingPanels : HotkeyPanelTargets {
    QStringList calls;
    void toggleQuickPanel() override { calls << "quick"; }
    void toggleClipboardPanel() override { calls << "toggle clipboard"; }
    void showClipboardPanel() override { calls << "clipboard"; }
    void showAssistant(const QString& context) override { calls << "assistant:" + context; }
    void showReply(const QString&, const AIReplyStyle&, const QString&) override {}
    void showTranslationPreview() override {}
};

class QuickPanelTest : public ::testing::Test, protected AppStateHarness {
protected:
    void SetUp() override
    {
        workspace.addApplication(42, "org.example.editor");
        workspace.addApplication(43, "org.example.chat");
        workspace.bringToFront(42);
    }
    // A gesture ends in another application, and the check after it runs.
    void release(Kind kind, Clock::Duration wait = SelectionTriggerService::checkDelay)
    {
        global.deliver(FakeInputEventMonitor::event(kind));
        QCoreApplication::processEvents();
        clock.advance(wait);
    }
    void select(qint32 process, const QString& text) { primary.owner = process, primary.text = text; }

    FakeApplicationWorkspace workspace;
    FakeAccessibilityTree tree;
    FocusService focus{workspace, tree};
    AccessibilityTextReader reader{focus, workspace, tree};
    FakePrimarySelection primary;
    QuietSelectionReader quiet{reader, focus, primary};
    RecordingPanels panels;
    FakeInputEventMonitor local;
    FakeInputEventMonitor global;
    FakeSurface* panel = nullptr;
    FakeSurface* button = nullptr;
    QuickPanelController quick{{workspace, focus, quiet, panels, local, global, defaults}, [this](auto&) {
                                   auto made = std::make_unique<FakeSurface>();
                                   panel = made.get();
                                   return made;
                               }};
    FloatingButtonController floating{[this](auto&) {
        auto made = std::make_unique<FakeSurface>();
        button = made.get();
        return made;
    }};
    SelectionTriggerService trigger{{clock, workspace, focus, quiet, exchange, local, global}};
};

} // namespace

TEST(QuickPanelGeometryTest, SizeFollowsTheMenuScaleAndTheScreen)
{
    struct Row {
        const char* what;
        qsizetype actions;
        MenuScale scale;
        std::optional<int> visibleHeight;
        QSize size;
    };
    for (const Row& row : {
             Row{"two actions count as four", 2, MenuScale::tiny, 1000, {300, 96 + 4 * 44}},
             Row{"976 is cut to 620", 20, MenuScale::tiny, 1400, {300, 620}},
             Row{"a visible height of 500 allows 420", 20, MenuScale::tiny, 500, {300, 420}},
             Row{"no screen allows 740, then 620", 20, MenuScale::xlarge, std::nullopt, {410, 620}},
             Row{"medium", 5, MenuScale::medium, 1000, {340, 124 + 5 * 54}},
         }) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(QuickPanelController::preferredPanelSize(row.actions, row.scale, row.visibleHeight),
                  row.size);
    }
}

TEST(FloatingButtonPlacementTest, StaysTwelvePixelsInsideTheVisibleArea)
{
    const QRect area(0, 30, 1600, 970);
    const QSize button = FloatingButtonController::buttonSize;
    EXPECT_EQ(FloatingButtonController::positionNearMouse({800, 500}, area, button),
              QPoint(812, 500 - 8 - 54));
    EXPECT_EQ(FloatingButtonController::positionNearMouse({1599, 999}, area, button),
              QPoint(1600 - 54 - 12, 1000 - 54 - 12));
    EXPECT_EQ(FloatingButtonController::positionNearMouse({0, 31}, area, button), QPoint(12, 42));
}

TEST_F(QuickPanelTest, SavedSizeKeepsToTheHeightLimit)
{
    defaults.setValue("mivora.quickPanel.width", 900.0);
    defaults.setValue("mivora.quickPanel.height", 800.0);
    auto saved = quick.makeSavedPanelSize(1000);
    EXPECT_EQ(saved->load(), QSize(560, 620));
    saved->save(QSize(200, 700));
    EXPECT_EQ(defaults.value("mivora.quickPanel.width").toDouble(), 300.0);
    EXPECT_EQ(defaults.value("mivora.quickPanel.height").toDouble(), 620.0) << "stored at most the limit";
}

TEST_F(QuickPanelTest, ShowsInPlaceRunsTheChosenRowAndHidesOnAnOutsideClick)
{
    quick.show(state);
    quick.show(state);
    EXPECT_EQ(panel->placements, (QList<bool>{true, false})) << "a shown panel stays where it is";
    EXPECT_EQ(focus.rememberedProcessIdentifier(), 42);

    global.deliver(FakeInputEventMonitor::event(Kind::leftMouseDown));
    QCoreApplication::processEvents();
    EXPECT_FALSE(quick.isVisible());
    quick.toggle(state);
    quick.toggle(state);
    EXPECT_FALSE(quick.isVisible());

    quick.show(state);
    quick.choose(QuickAction("clipboard"));
    select(42, "picked");
    quick.choose(QuickAction("ai"));
    QCoreApplication::processEvents();
    EXPECT_EQ(panels.calls, (QStringList{"clipboard", "assistant:picked"}));
    EXPECT_FALSE(quick.isVisible());

    exchange.selection = "ghbdtn";
    quick.chooseTargetLanguage("German");
    clock.runUntilIdle();
    EXPECT_EQ(state.settings().targetLanguage, "German");
    EXPECT_EQ(backend.calls.size(), 1) << "choosing a language translates at once";
}

TEST_F(QuickPanelTest, TriggerStaysIdleWithBothSwitchesOff)
{
    trigger.start(state, quick, floating);
    select(42, "text");
    release(Kind::leftMouseUp);
    EXPECT_EQ(primary.reads, 0);
    EXPECT_TRUE(exchange.reads.isEmpty());
}

TEST_F(QuickPanelTest, TriggerChecksOnceAfterABurstAndShowsEachSelectionOnce)
{
    configure([](MivoraSettings& s) { s.floatingButtonVisible = true; });
    trigger.start(state, quick, floating);
    exchange.selection = "copied";
    for (int i = 0; i < 5; ++i) {
        release(Kind::keyUp, 100ms);
    }
    clock.advance(130ms);
    EXPECT_EQ(exchange.reads.size(), 1) << "the clipboard is read once, after the quiet read found nothing";
    EXPECT_EQ(exchange.reads[0].selectAllBeforeCopy, false);
    ASSERT_TRUE(floating.isVisible());

    struct Step {
        const char* what;
        qint32 front;
        QString quiet;
        Clock::Duration after;
        bool shown;
    };
    exchange.selection.clear();
    for (const Step& step : {
             Step{"the same text within a second", 42, "copied", 500ms, false},
             Step{"the same text a second later", 42, "copied", 1000ms, true},
             Step{"the same text in another application", 43, "copied", 0ms, true},
             Step{"a click away clears it", 43, "", 0ms, false},
             Step{"so selecting it again shows at once", 43, "copied", 0ms, true},
         }) {
        SCOPED_TRACE(step.what);
        floating.hide();
        workspace.bringToFront(step.front);
        select(step.front, step.quiet);
        clock.advance(step.after);
        release(Kind::leftMouseUp);
        EXPECT_EQ(floating.isVisible(), step.shown);
    }
    EXPECT_EQ(exchange.reads.size(), 2) << "the quiet read came first each time it had text";
}

TEST_F(QuickPanelTest, TriggerIgnoresThisProgramAndAnOpenPanelAndCanOpenThePanel)
{
    configure([](MivoraSettings& s) { s.autoQuickMenuEnabled = true; });
    trigger.start(state, quick, floating);
    workspace.addApplication(workspace.ownProcess, "mivora");
    workspace.bringToFront(workspace.ownProcess);
    select(workspace.ownProcess, "own text");
    release(Kind::leftMouseUp);
    EXPECT_EQ(primary.reads, 0);

    workspace.bringToFront(42);
    select(42, "text");
    release(Kind::leftMouseUp);
    EXPECT_TRUE(quick.isVisible());
    EXPECT_EQ(primary.reads, 1);
    release(Kind::keyUp, 2s);
    EXPECT_EQ(primary.reads, 1) << "no check while the panel is open";
}
