#include "EventLoopWait.h"
#include "MemoryDefaultsStore.h"
#include "TestFieldProcess.h"
#include "core/EventLoopClock.h"
#include "panels/FloatingPanelDismissMonitor.h"
#include "panels/PanelPlacement.h"
#include "panels/SavedPanelSize.h"
#include "panels/views/FloatingPanel.h"
#include "panels/views/QtLocalInputMonitor.h"
#include "panels/views/StatusHUDPanel.h"
#include "platform/x11/X11CompositorSurfaceSignals.h"
#include "platform/x11/X11DisplayConnection.h"
#include "platform/x11/X11EventPump.h"
#include "platform/x11/X11FloatingWindowTraits.h"
#include "platform/x11/X11GlobalInputMonitor.h"
#include "platform/x11/X11WindowProperty.h"

#include <QApplication>
#include <QScreen>
#include <QWidget>
#include <QWindow>
#include <gtest/gtest.h>

// Last: Xlib's macros (None, Bool) break the test framework's headers.
#include <X11/Xatom.h>
#include <X11/Xlib.h>

using namespace std::chrono_literals;

namespace {

// Moves the pointer onto a window by its title and presses a button there, as a person clicks.
bool clickWindow(const QString& title, int button)
{
    const std::optional<QString> window =
        findWindow({QStringLiteral("--name"), QStringLiteral("^%1$").arg(title)});
    return window &&
           runTool(QStringLiteral("xdotool"),
                   {QStringLiteral("mousemove"), QStringLiteral("--window"), *window, QStringLiteral("20"),
                    QStringLiteral("20"), QStringLiteral("click"), QString::number(button)})
               .has_value();
}

// The atoms of an ATOM-typed property of a window, by name.
QStringList atomNames(Display* dpy, Window window, const char* property)
{
    QStringList names;
    const auto value =
        X11WindowProperty::read(dpy, window, XInternAtom(dpy, property, False), XA_ATOM, 0, 64);
    for (unsigned long i = 0; value && value->format == 32 && i < value->count; ++i) {
        char* name = XGetAtomName(dpy, reinterpret_cast<const Atom*>(value->data.get())[i]);
        names.append(QString::fromLatin1(name));
        XFree(name);
    }
    return names;
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
    ASSERT_TRUE(clickWindow(QStringLiteral("Own window"), 1));
    pauseFor(500ms);
    EXPECT_EQ(presses.size(), 2);

    // Once the last monitor is gone nothing is reported, and the press still reached its target.
    handle.reset();
    ASSERT_TRUE(clickWindow(QStringLiteral("Other application"), 1));
    pauseFor(300ms);
    EXPECT_EQ(presses.size(), 2);
}

TEST_F(X11FaceTest, GestureEndsAndTheAltStateReachTheGlobalMonitorWithoutTheKeys)
{
    X11GlobalInputMonitor monitor(pump);
    QList<MonitoredInputEvent> seen;
    auto handle =
        monitor.addMonitor(MonitoredInputEvent::Kind::leftMouseDown | MonitoredInputEvent::Kind::leftMouseUp |
                               MonitoredInputEvent::Kind::keyUp,
                           [&](const MonitoredInputEvent& event) { seen.append(event); });
    ASSERT_TRUE(handle);
    TestFieldProcess other;
    ASSERT_TRUE(other.start(QStringLiteral("mivora-gesture-other"), QStringLiteral("Gesture target")));
    ASSERT_TRUE(other.waitForFocus());

    // A key typed and released in another application: only that a key went up, never which.
    ASSERT_TRUE(runTool(QStringLiteral("xdotool"), {QStringLiteral("key"), QStringLiteral("--delay"),
                                                    QStringLiteral("120"), QStringLiteral("x")}));
    ASSERT_TRUE(spinUntil([&] { return !seen.isEmpty(); }));
    EXPECT_EQ(seen.last().kind, MonitoredInputEvent::Kind::keyUp);
    EXPECT_EQ(seen.last().macKeyCode, 0);

    // Alt held through a click, as a person starts a drag: both ends carry Alt and the pointer.
    seen.clear();
    const QStringList altClick{QStringLiteral("search"),
                               QStringLiteral("--sync"),
                               QStringLiteral("--onlyvisible"),
                               QStringLiteral("--name"),
                               QStringLiteral("^Gesture target$"),
                               QStringLiteral("mousemove"),
                               QStringLiteral("--window"),
                               QStringLiteral("%1"),
                               QStringLiteral("30"),
                               QStringLiteral("25"),
                               QStringLiteral("keydown"),
                               QStringLiteral("alt"),
                               QStringLiteral("sleep"),
                               QStringLiteral("0.15"),
                               QStringLiteral("mousedown"),
                               QStringLiteral("1"),
                               QStringLiteral("sleep"),
                               QStringLiteral("0.2"),
                               QStringLiteral("mouseup"),
                               QStringLiteral("1"),
                               QStringLiteral("sleep"),
                               QStringLiteral("0.1"),
                               QStringLiteral("keyup"),
                               QStringLiteral("alt")};
    ASSERT_TRUE(runTool(QStringLiteral("xdotool"), altClick));
    ASSERT_TRUE(spinUntil([&] {
        return std::any_of(seen.begin(), seen.end(), [](const MonitoredInputEvent& e) {
            return e.kind == MonitoredInputEvent::Kind::leftMouseUp;
        });
    }));
    const auto down = std::find_if(seen.begin(), seen.end(), [](const MonitoredInputEvent& e) {
        return e.kind == MonitoredInputEvent::Kind::leftMouseDown;
    });
    ASSERT_NE(down, seen.end());
    EXPECT_TRUE(down->optionHeld);
    // The pointer has not moved since the press.
    Window root = 0;
    Window child = 0;
    int x = 0;
    int y = 0;
    int windowX = 0;
    int windowY = 0;
    unsigned mask = 0;
    XQueryPointer(display.get(), DefaultRootWindow(display.get()), &root, &child, &x, &y, &windowX, &windowY,
                  &mask);
    EXPECT_EQ(down->pointer, QPoint(x, y));
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

TEST(StatusOverlayTextTest, ShrinksToNoLessThanFourFifthsOfItsSizeThenIsCut)
{
    // 14 points in a text area 200 wide.
    const struct {
        qreal naturalWidth, pointSize;
        bool cut;
    } cases[] = {
        {0, 14, false},
        {120, 14, false},
        {200, 14, false},
        {230, 14 * 200.0 / 230, false},
        {240, 14 * 200.0 / 240, false},
        {250, 14 * 0.82, true},
        {2000, 14 * 0.82, true},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.naturalWidth);
        const auto [pointSize, cut] = StatusHUDPanel::fittedTextSize(test.naturalWidth, 200, 14);
        EXPECT_NEAR(pointSize, test.pointSize, 1e-9);
        EXPECT_EQ(cut, test.cut);
    }
}

TEST_F(X11FaceTest, APanelFloatsOnEveryDesktopOutOfTaskbarsAndClosingOnlyHidesIt)
{
    TestFieldProcess field;
    ASSERT_TRUE(field.start(QStringLiteral("mivora-face-panel"), QStringLiteral("Typing here")));
    ASSERT_TRUE(field.waitForFocus());

    MemoryDefaultsStore defaults;
    defaults.setValue(QStringLiteral("mivora.test.width"), 900.0);
    defaults.setValue(QStringLiteral("mivora.test.height"), 250.0);
    X11FloatingWindowTraits traits;
    FloatingPanel panel({QStringLiteral("Floating test panel"), FloatingPanel::Role::nonActivatingPanel, 16},
                        &traits);
    panel.keepSizeIn(std::make_unique<SavedPanelSize>(
        defaults, QStringLiteral("mivora.test"),
        SavedPanelSize::Limits{QSize(300, 200), QSize(600, 500), QSize(400, 300)}));
    EXPECT_EQ(panel.size(), QSize(600, 250)) << "the stored width is held to the panel's maximum";
    panel.showNearMouse();
    ASSERT_TRUE(spinUntil([&] { return panel.windowHandle() && panel.windowHandle()->isExposed(); }));

    const auto window = Window(panel.winId());
    ASSERT_TRUE(spinUntil([&] {
        const QStringList states = atomNames(display.get(), window, "_NET_WM_STATE");
        // Openbox says "on every desktop" through _NET_WM_DESKTOP alone, not through a sticky state.
        return states.contains(QStringLiteral("_NET_WM_STATE_SKIP_TASKBAR")) &&
               states.contains(QStringLiteral("_NET_WM_STATE_SKIP_PAGER")) &&
               states.contains(QStringLiteral("_NET_WM_STATE_ABOVE"));
    })) << atomNames(display.get(), window, "_NET_WM_STATE").join(u' ').toStdString();
    const auto desktop = X11WindowProperty::read(
        display.get(), window, XInternAtom(display.get(), "_NET_WM_DESKTOP", False), XA_CARDINAL, 0, 1);
    ASSERT_TRUE(desktop && desktop->count == 1);
    EXPECT_EQ(*reinterpret_cast<const unsigned long*>(desktop->data.get()) & 0xFFFFFFFF, 0xFFFFFFFFUL);
    // Shown without taking the focus from the application the user types in.
    EXPECT_TRUE(field.waitForFocus());

    // The window manager's close hides the panel; it stays made, and its size is kept for the next show.
    panel.resize(350, 220);
    ASSERT_TRUE(spinUntil([&] { return panel.size() == QSize(350, 220); }));
    // As the title-bar button or Alt+F4 would: the window manager asks the panel to close.
    ASSERT_TRUE(runTool(QStringLiteral("wmctrl"),
                        {QStringLiteral("-i"), QStringLiteral("-c"), QString::number(window)}));
    ASSERT_TRUE(spinUntil([&] { return !panel.isVisible(); }));
    EXPECT_EQ(panel.winId(), window);
    EXPECT_EQ(defaults.value(QStringLiteral("mivora.test.width")).toDouble(), 350.0);
    EXPECT_EQ(defaults.value(QStringLiteral("mivora.test.height")).toDouble(), 220.0);

    // Shown again, it floats the same way: the hints outlive the window manager's unmanaging it.
    panel.showNearMouse();
    EXPECT_TRUE(spinUntil([&] {
        return atomNames(display.get(), window, "_NET_WM_STATE")
            .contains(QStringLiteral("_NET_WM_STATE_SKIP_TASKBAR"));
    }));
}

TEST_F(X11FaceTest, EscapeAndAClickInAnotherApplicationDismissAShownPanelAndTheClickStillLands)
{
    TestFieldProcess other;
    ASSERT_TRUE(other.start(QStringLiteral("mivora-face-dismiss"), QStringLiteral("Other application")));

    QtLocalInputMonitor localEvents;
    X11GlobalInputMonitor globalEvents(pump);
    X11FloatingWindowTraits traits;
    FloatingPanel panel({QStringLiteral("Dismissable panel"), FloatingPanel::Role::keyPanel, 16}, &traits);
    panel.resize(320, 200);
    FloatingPanelDismissMonitor dismissal(localEvents, globalEvents,
                                          {&panel, [&] { return panel.isVisible(); }}, [&] { panel.hide(); });
    const auto showPanel = [&] {
        panel.showNearMouse();
        dismissal.install();
        return spinUntil([&] { return panel.isActiveWindow(); });
    };

    ASSERT_TRUE(showPanel());
    ASSERT_TRUE(runTool(QStringLiteral("xdotool"), {QStringLiteral("key"), QStringLiteral("Escape")}));
    EXPECT_TRUE(spinUntil([&] { return !panel.isVisible(); })) << "Escape left the panel up";

    // A person takes a moment before opening the panel again.
    pauseFor(800ms);
    ASSERT_TRUE(showPanel());
    ASSERT_TRUE(clickWindow(QStringLiteral("Other application"), 1));
    EXPECT_TRUE(spinUntil([&] { return !panel.isVisible(); })) << "an outside click left the panel up";
    // Nothing was swallowed: the click activated the application it was meant for.
    EXPECT_TRUE(other.waitForFocus());
}
