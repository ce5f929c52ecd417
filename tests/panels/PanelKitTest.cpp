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
    const QRect screen(0, 0, 1440, 900);
    const QSize panel(380, 520);
    EXPECT_EQ(PanelPlacement::positionNearMouse({500, 400}, screen, panel), QPoint(514, 364));
    // Near the right and bottom edges the panel is pushed back inside by 16 px.
    EXPECT_EQ(PanelPlacement::positionNearMouse({1400, 890}, screen, panel),
              QPoint(1440 - 380 - 16, 900 - 520 - 16));
    // Near the top left it keeps 16 px from both edges.
    EXPECT_EQ(PanelPlacement::positionNearMouse({0, 0}, screen, panel), QPoint(16, 16));
    // On a second screen to the left of the first, coordinates are negative and still honoured.
    EXPECT_EQ(PanelPlacement::positionNearMouse({-1000, 300}, QRect(-1280, 0, 1280, 1024), panel),
              QPoint(-986, 282));
}

TEST(PanelPlacementTest, OnAScreenTooSmallTheTopLeftMarginWins)
{
    // The title must never leave the screen: x keeps the right bound, y keeps the top bound.
    const QPoint origin =
        PanelPlacement::positionNearMouse({100, 100}, QRect(0, 0, 300, 300), QSize(400, 400));
    EXPECT_EQ(origin, QPoint(300 - 400 - 16, 16));
}

TEST(PanelPlacementTest, StatusOverlaySitsCentredAboveTheBottomEdge)
{
    EXPECT_EQ(PanelPlacement::statusOverlayPosition(QRect(0, 28, 1440, 872), QSize(260, 72)),
              QPoint(720 - 130, 900 - 82 - 72));
}

TEST(SavedPanelSizeTest, ClampsWhatIsStoredAndFallsBackOnGarbage)
{
    MemoryDefaultsStore defaults;
    SavedPanelSize size(defaults, QStringLiteral("mivora.clipboardPanel"),
                        {QSize(340, 380), QSize(760, 860), QSize(380, 520)});
    EXPECT_EQ(size.load(), QSize(380, 520));

    size.save(QSize(2000, 100));
    EXPECT_EQ(defaults.value(QStringLiteral("mivora.clipboardPanel.width")).toDouble(), 760.0);
    EXPECT_EQ(defaults.value(QStringLiteral("mivora.clipboardPanel.height")).toDouble(), 380.0);
    EXPECT_EQ(size.load(), QSize(760, 380));

    defaults.setValue(QStringLiteral("mivora.clipboardPanel.width"), QStringLiteral("wide"));
    EXPECT_EQ(size.load(), QSize(380, 520));
    defaults.setValue(QStringLiteral("mivora.clipboardPanel.width"), -5.0);
    EXPECT_EQ(size.load(), QSize(380, 520));
}

TEST(AppearancePaletteTest, VeilAndBorderFollowSchemeAndSurface)
{
    // A solid surface is veiled as in the dark scheme whatever the scheme says.
    EXPECT_EQ(AppearancePalette::glassWash(SurfaceMode::solid, ColorScheme::light),
              ThemeColor::rgb(0, 0, 0, 0.36));
    EXPECT_EQ(AppearancePalette::glassWash(SurfaceMode::translucent, ColorScheme::light),
              ThemeColor::rgb(1, 1, 1, 0.18));
    EXPECT_EQ(AppearancePalette::glassWash(SurfaceMode::translucent, ColorScheme::dark),
              ThemeColor::rgb(0, 0, 0, 0.24));
    EXPECT_EQ(AppearancePalette::floatingBorderColor(SurfaceMode::solid, ColorScheme::light),
              ThemeColor::rgb(0, 0, 0, 0.1));
    EXPECT_EQ(AppearancePalette::floatingBorderColor(SurfaceMode::solid, ColorScheme::dark),
              ThemeColor::rgb(1, 1, 1, 0.16));
    EXPECT_EQ(AppearancePalette::systemSolidGlassOverlay(SurfaceMode::solid, ColorScheme::dark),
              ThemeColor::rgb(0.11, 0.11, 0.115, 0.16));
    EXPECT_EQ(AppearancePalette::systemSolidGlassOverlay(SurfaceMode::translucent, ColorScheme::dark).source,
              ThemeColor::Source::platformWindowBackground);
    EXPECT_EQ(AppearancePalette::accentColor(AppearanceMode::system).source,
              ThemeColor::Source::platformAccent);
    EXPECT_TRUE(AppearancePalette::surfaceTint(AppearanceMode::system).isClear());
    EXPECT_EQ(AppearancePalette::backgroundColors(AppearanceMode::liquidRose).second,
              ThemeColor::rgb(0.3, 0.08, 0.18));
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
        globalEvents.deliver({MonitoredInputEvent::Kind::leftMouseDown, 0, nullptr});
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
    local({MonitoredInputEvent::Kind::keyDown, 53, &otherWindow});
    EXPECT_EQ(dismissals, 1) << "Escape counts even in another window of this program";
    local({MonitoredInputEvent::Kind::keyDown, 53, &panelWindow});
    EXPECT_EQ(dismissals, 2);
    local({MonitoredInputEvent::Kind::rightMouseDown, 0, &otherWindow});
    EXPECT_EQ(dismissals, 3);
    outsideClick();
    EXPECT_EQ(dismissals, 4);
}

TEST_F(DismissMonitorTest, InsideThePanelAndTypingElsewhereNeverDismiss)
{
    local({MonitoredInputEvent::Kind::leftMouseDown, 0, &panelWindow});
    local({MonitoredInputEvent::Kind::keyDown, 0, &panelWindow});
    local({MonitoredInputEvent::Kind::keyDown, 0, &otherWindow});
    EXPECT_EQ(dismissals, 0);
}

TEST_F(DismissMonitorTest, AHiddenPanelOrARemovedMonitorDoesNothing)
{
    panelVisible = false;
    local({MonitoredInputEvent::Kind::keyDown, 53, &panelWindow});
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
    globalEvents.deliver({MonitoredInputEvent::Kind::leftMouseDown, 0, nullptr});
    doomed.reset();
    QCoreApplication::processEvents();
    EXPECT_EQ(dismissals, 0);
}
