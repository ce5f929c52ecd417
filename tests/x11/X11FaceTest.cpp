#include "EventLoopWait.h"
#include "TestFieldProcess.h"
#include "core/EventLoopClock.h"
#include "panels/PanelPlacement.h"
#include "panels/views/StatusHUDPanel.h"
#include "platform/x11/X11CompositorSurfaceSignals.h"
#include "platform/x11/X11DisplayConnection.h"
#include "platform/x11/X11EventPump.h"
#include "platform/x11/X11GlobalInputMonitor.h"

#include <QApplication>
#include <QScreen>
#include <QWidget>
#include <QWindow>
#include <gtest/gtest.h>

// Last: Xlib's macros (None, Bool) break the test framework's headers.
#include <X11/Xlib.h>

using namespace std::chrono_literals;

namespace {

// Moves the pointer onto a window by its title and presses a button there, as a person clicks.
bool clickWindow(const QString& title, int button)
{
    return runTool(QStringLiteral("xdotool"),
                   {QStringLiteral("search"), QStringLiteral("--sync"), QStringLiteral("--onlyvisible"),
                    QStringLiteral("--name"), QStringLiteral("^%1$").arg(title), QStringLiteral("mousemove"),
                    QStringLiteral("--window"), QStringLiteral("%1"), QStringLiteral("20"),
                    QStringLiteral("20"), QStringLiteral("click"), QString::number(button)})
        .has_value();
}

class X11FaceTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(display) << "needs an X server"; }

    X11DisplayConnection display;
    EventLoopClock clock;
    X11EventPump pump{display.get(), clock};
};

} // namespace

TEST_F(X11FaceTest, OutsideClicksReachTheGlobalMonitorButClicksOnOwnWindowsDoNot)
{
    X11GlobalInputMonitor monitor(pump);
    QList<MonitoredInputEvent::Kind> presses;
    auto handle = monitor.addMonitor(MonitoredInputEvent::Kind::leftMouseDown |
                                         MonitoredInputEvent::Kind::rightMouseDown,
                                     [&](const MonitoredInputEvent& event) { presses.append(event.kind); });
    ASSERT_TRUE(handle) << "the server offers XInput 2";

    TestFieldProcess other;
    ASSERT_TRUE(other.start(QStringLiteral("mivora-face-other"), QStringLiteral("Other application")));
    ASSERT_TRUE(clickWindow(QStringLiteral("Other application"), 1));
    ASSERT_TRUE(spinUntil([&] { return presses.size() == 1; }));
    EXPECT_EQ(presses.first(), MonitoredInputEvent::Kind::leftMouseDown);
    ASSERT_TRUE(clickWindow(QStringLiteral("Other application"), 3));
    ASSERT_TRUE(spinUntil([&] { return presses.size() == 2; }));
    EXPECT_EQ(presses.last(), MonitoredInputEvent::Kind::rightMouseDown);

    // The wheel is no click, and a press on this program's own window is the local monitor's business.
    ASSERT_TRUE(clickWindow(QStringLiteral("Other application"), 4));
    QWidget own;
    own.setWindowTitle(QStringLiteral("Own window"));
    own.resize(200, 120);
    own.show();
    ASSERT_TRUE(spinUntil([&] { return own.windowHandle() && own.windowHandle()->isExposed(); }));
    const auto ownClick =
        runTool(QStringLiteral("xdotool"),
                {QStringLiteral("mousemove"), QStringLiteral("--window"), QString::number(own.winId()),
                 QStringLiteral("20"), QStringLiteral("20"), QStringLiteral("click"), QStringLiteral("1")});
    ASSERT_TRUE(ownClick.has_value());
    spinUntil([] { return false; }, 500ms);
    EXPECT_EQ(presses.size(), 2);

    // Once the last monitor is gone nothing is reported, and the press still reached its target.
    handle.reset();
    ASSERT_TRUE(clickWindow(QStringLiteral("Other application"), 1));
    spinUntil([] { return false; }, 300ms);
    EXPECT_EQ(presses.size(), 2);
}

TEST_F(X11FaceTest, SurfacesAreSolidExactlyWhileNoCompositorRuns)
{
    X11CompositorSurfaceSignals compositorSignal(display.get());
    EXPECT_TRUE(compositorSignal.reduceTransparency()) << "openbox composites nothing";

    // A stand-in compositor: another client takes the manager selection of screen 0.
    X11DisplayConnection compositor;
    Display* dpy = compositor.get();
    const Window owner = XCreateSimpleWindow(dpy, DefaultRootWindow(dpy), 0, 0, 1, 1, 0, 0, 0);
    XSetSelectionOwner(dpy, XInternAtom(dpy, "_NET_WM_CM_S0", False), owner, CurrentTime);
    XSync(dpy, False);
    EXPECT_FALSE(compositorSignal.reduceTransparency());
    XDestroyWindow(dpy, owner);
    XSync(dpy, False);
    EXPECT_TRUE(compositorSignal.reduceTransparency());
}

TEST_F(X11FaceTest, TheOverlaySitsAtTheBottomCentreAndLeavesTheFocusWhereItWas)
{
    TestFieldProcess field;
    ASSERT_TRUE(field.start(QStringLiteral("mivora-face-field"), QStringLiteral("Typing here")));
    ASSERT_TRUE(field.waitForFocus());

    StatusHUDPanel overlay;
    overlay.present(StatusHUDContent::of(ActionStatus::failed(QStringLiteral("No selected text."))),
                    AppearanceMode::system, SurfaceMode::solid);
    ASSERT_TRUE(spinUntil([&] { return overlay.isVisible() && overlay.windowHandle()->isExposed(); }));
    const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
    EXPECT_EQ(overlay.frameGeometry().topLeft(), PanelPlacement::statusOverlayPosition(area, QSize(260, 72)));
    EXPECT_EQ(overlay.size(), QSize(260, 72));

    // Replaced in place, never moved or hidden.
    overlay.present(StatusHUDContent::of(ActionStatus::done(QStringLiteral("Pasted"))),
                    AppearanceMode::liquidSky, SurfaceMode::translucent);
    EXPECT_TRUE(overlay.isVisible());
    EXPECT_EQ(overlay.frameGeometry().topLeft(), PanelPlacement::statusOverlayPosition(area, QSize(260, 72)));

    // Keys still go to the field the user was typing in.
    EXPECT_TRUE(field.waitForFocus());
    EXPECT_FALSE(overlay.isActiveWindow());
    overlay.orderOut();
    EXPECT_FALSE(overlay.isShown());
}
