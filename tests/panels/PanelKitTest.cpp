#include "FakeInputEventMonitor.h"
#include "MemoryDefaultsStore.h"
#include "panels/AppearancePalette.h"
#include "panels/FloatingPanelDismissMonitor.h"
#include "panels/PanelPlacement.h"
#include "panels/SavedPanelSize.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

TEST(PanelPlacementTest, OpensBesideThePointerAndStaysOnTheScreen)
{
    struct Row {
        const char* what;
        QPoint pointer;
        QRect screen;
        QSize panel;
        QPoint origin;
    };
    const QRect screen(0, 0, 1440, 900);
    const QSize panel(380, 520);
    for (const Row& row : {
             Row{"beside the pointer", {500, 400}, screen, panel, {514, 364}},
             Row{"pushed back 16 px from the right and bottom", {1400, 890}, screen, panel, {1044, 364}},
             Row{"16 px from the top left", {0, 0}, screen, panel, {16, 16}},
             Row{"a screen left of the first", {-1000, 300}, QRect(-1280, 0, 1280, 1024), panel, {-986, 282}},
             // The title must never leave the screen: x keeps the right bound, y keeps the top bound.
             Row{"too small a screen", {100, 100}, QRect(0, 0, 300, 300), QSize(400, 400), {-116, 16}},
         }) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(PanelPlacement::positionNearMouse(row.pointer, row.screen, row.panel), row.origin);
    }
    EXPECT_EQ(PanelPlacement::statusOverlayPosition(QRect(0, 28, 1440, 872), QSize(260, 72)),
              QPoint(720 - 130, 900 - 82 - 72));
}

TEST(SavedPanelSizeTest, CapsALargeSizeAndDistrustsASmallOneOrGarbage)
{
    MemoryDefaultsStore defaults;
    SavedPanelSize size(defaults, QStringLiteral("mivora.clipboardPanel"),
                        {QSize(340, 380), QSize(760, 860), QSize(380, 520)});
    EXPECT_EQ(size.load(), QSize(380, 520));

    size.save(QSize(2000, 100));
    EXPECT_EQ(defaults.value(QStringLiteral("mivora.clipboardPanel.width")).toDouble(), 2000.0);
    EXPECT_EQ(defaults.value(QStringLiteral("mivora.clipboardPanel.height")).toDouble(), 380.0);
    EXPECT_EQ(size.load(), QSize(760, 380));

    defaults.setValue(QStringLiteral("mivora.clipboardPanel.width"), 339.0);
    EXPECT_EQ(size.load(), QSize(380, 520)) << "short of the minimum on one side";

    defaults.setValue(QStringLiteral("mivora.clipboardPanel.width"), QStringLiteral("wide"));
    EXPECT_EQ(size.load(), QSize(380, 520));
    defaults.setValue(QStringLiteral("mivora.clipboardPanel.width"), -5.0);
    EXPECT_EQ(size.load(), QSize(380, 520));
}

TEST(AppearancePaletteTest, ASolidSurfaceIsVeiledAsInTheDarkSchemeAndTheSystemLookUsesPlatformColours)
{
    using P = AppearancePalette;
    EXPECT_EQ(P::glassWash(SurfaceMode::solid, ColorScheme::light),
              P::glassWash(SurfaceMode::solid, ColorScheme::dark));
    EXPECT_NE(P::glassWash(SurfaceMode::translucent, ColorScheme::light),
              P::glassWash(SurfaceMode::translucent, ColorScheme::dark));
    EXPECT_NE(P::floatingBorderColor(SurfaceMode::solid, ColorScheme::light),
              P::floatingBorderColor(SurfaceMode::solid, ColorScheme::dark));
    EXPECT_EQ(P::systemSolidGlassOverlay(SurfaceMode::translucent, ColorScheme::dark).source,
              ThemeColor::Source::platformWindowBackground);
    EXPECT_EQ(P::accentColor(AppearanceMode::system).source, ThemeColor::Source::platformAccent);
    EXPECT_TRUE(P::surfaceTint(AppearanceMode::system).isClear());
}

class DismissMonitorTest : public ::testing::Test {
protected:
    void SetUp() override { monitor.install(); }

    // Local events reach the rules one event-loop turn after the event went to its target.
    void local(MonitoredInputEvent event)
    {
        const int before = dismissals;
        localEvents.deliver(event);
        EXPECT_EQ(dismissals, before) << "a local event must not be handled before it reached its target";
        QCoreApplication::processEvents();
    }
    void outsideClick()
    {
        globalEvents.deliver(
            FakeInputEventMonitor::event(MonitoredInputEvent::Kind::leftMouseDown, 0, nullptr));
        QCoreApplication::processEvents();
    }

    const int panelWindow = 0;
    const int otherWindow = 0;
    bool panelVisible = true;
    int dismissals = 0;
    FakeInputEventMonitor localEvents;
    FakeInputEventMonitor globalEvents;
    FloatingPanelDismissMonitor monitor{
        localEvents, globalEvents, {&panelWindow, [this] { return panelVisible; }}, [this] { ++dismissals; }};
};

TEST_F(DismissMonitorTest, EscapeAnywhereAndClicksOutsideDismiss)
{
    local(FakeInputEventMonitor::event(MonitoredInputEvent::Kind::keyDown, 53, &otherWindow));
    EXPECT_EQ(dismissals, 1) << "Escape counts even in another window of this program";
    local(FakeInputEventMonitor::event(MonitoredInputEvent::Kind::keyDown, 53, &panelWindow));
    EXPECT_EQ(dismissals, 2);
    local(FakeInputEventMonitor::event(MonitoredInputEvent::Kind::rightMouseDown, 0, &otherWindow));
    EXPECT_EQ(dismissals, 3);
    outsideClick();
    EXPECT_EQ(dismissals, 4);
}

TEST_F(DismissMonitorTest, InsideThePanelAndTypingElsewhereNeverDismiss)
{
    local(FakeInputEventMonitor::event(MonitoredInputEvent::Kind::leftMouseDown, 0, &panelWindow));
    local(FakeInputEventMonitor::event(MonitoredInputEvent::Kind::keyDown, 0, &panelWindow));
    local(FakeInputEventMonitor::event(MonitoredInputEvent::Kind::keyDown, 0, &otherWindow));
    EXPECT_EQ(dismissals, 0);
}

TEST_F(DismissMonitorTest, AHiddenPanelOrARemovedMonitorDoesNothing)
{
    panelVisible = false;
    local(FakeInputEventMonitor::event(MonitoredInputEvent::Kind::keyDown, 53, &panelWindow));
    outsideClick();
    EXPECT_EQ(dismissals, 0);

    panelVisible = true;
    monitor.remove();
    monitor.remove();
    EXPECT_FALSE(localEvents.hasMonitors() || globalEvents.hasMonitors());
    outsideClick();
    EXPECT_EQ(dismissals, 0);

    // Installing twice keeps one pair.
    monitor.install();
    monitor.install();
    ASSERT_TRUE(localEvents.hasMonitors() && globalEvents.hasMonitors());
    outsideClick();
    EXPECT_EQ(dismissals, 1) << "one pair of monitors, so one dismissal per click";
}

TEST_F(DismissMonitorTest, AnEventQueuedBeforeTheMonitorWentIsDropped)
{
    auto doomed = std::make_unique<FloatingPanelDismissMonitor>(
        localEvents, globalEvents, FloatingPanelDismissMonitor::Panel{&panelWindow, [] { return true; }},
        [this] { ++dismissals; });
    monitor.remove();
    doomed->install();
    globalEvents.deliver(FakeInputEventMonitor::event(MonitoredInputEvent::Kind::leftMouseDown, 0, nullptr));
    doomed.reset();
    QCoreApplication::processEvents();
    EXPECT_EQ(dismissals, 0);
}
