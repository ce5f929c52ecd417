#include "ResidentAppProcess.h"
#include "TestFieldProcess.h"
#include "X11TestClient.h"
#include "core/EventLoopClock.h"
#include "platform/x11/X11DesktopWindows.h"

#include <array>
#include <gtest/gtest.h>
#include <memory>
#include <vector>

// Last: Xlib's macros (None, Bool) break the test framework's headers.
#include <X11/Xatom.h>
#include <X11/Xlib.h>

using namespace std::chrono_literals;

namespace {

// The private server is 1600 by 1000 with no panel, so the visible frame is the whole screen.
const QRect leftHalf(0, 0, 800, 1000);
const QRect rightHalf(800, 0, 800, 1000);

// A desktop panel as a taskbar makes one: an undecorated dock window that reserves a band along an edge
// through _NET_WM_STRUT_PARTIAL. It goes with this object.
class DockPanel {
public:
    DockPanel(Display* display, const QRect& geometry, const std::array<long, 12>& strut)
        : m_display(display),
          m_window(XCreateSimpleWindow(display, DefaultRootWindow(display), geometry.x(), geometry.y(),
                                       geometry.width(), geometry.height(), 0, 0, 0))
    {
        Atom dock = XInternAtom(display, "_NET_WM_WINDOW_TYPE_DOCK", False);
        XChangeProperty(display, m_window, XInternAtom(display, "_NET_WM_WINDOW_TYPE", False), XA_ATOM, 32,
                        PropModeReplace, reinterpret_cast<unsigned char*>(&dock), 1);
        XChangeProperty(display, m_window, XInternAtom(display, "_NET_WM_STRUT_PARTIAL", False), XA_CARDINAL,
                        32, PropModeReplace, reinterpret_cast<const unsigned char*>(strut.data()), 12);
        XMapWindow(display, m_window);
        XSync(display, False);
    }
    ~DockPanel()
    {
        XDestroyWindow(m_display, m_window);
        XSync(m_display, False);
    }
    DockPanel(const DockPanel&) = delete;
    DockPanel& operator=(const DockPanel&) = delete;

private:
    Display* m_display;
    Window m_window;
};

class WindowTilingEndToEndTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(keyboard.isConnected()) << "needs an X server";
        ASSERT_TRUE(waitForWindowManager()) << "needs an EWMH window manager";
        ASSERT_TRUE(app.start());
        ASSERT_TRUE(app.waitForHotkeys()) << app.standardError().toStdString();
    }

    // A window of another process, active once this returns.
    DesktopWindows::WindowId open(const QString& title, int minimumWidth = 0)
    {
        auto& field = *fields.emplace_back(std::make_unique<TestFieldProcess>());
        field.setMinimumWidth(minimumWidth);
        EXPECT_TRUE(field.start(QStringLiteral("MivoraTilingField"), title));
        EXPECT_TRUE(field.waitForFocus());
        // A window the size of a small editor, not of a bare text field.
        const QString window = field.window().value_or(QString());
        EXPECT_TRUE(runTool(QStringLiteral("xdotool"), {"windowsize", "--sync", window, "420", "240"}));
        return window.toULongLong();
    }

    void activate(DesktopWindows::WindowId window)
    {
        ASSERT_TRUE(runTool(QStringLiteral("xdotool"), {QStringLiteral("windowactivate"),
                                                        QStringLiteral("--sync"), QString::number(window)}));
    }

    // Holds the chord as a person does: modifiers one after another, the key held a moment, the key let go
    // before the modifiers.
    void holdChord(const QStringList& modifiers, const QString& key)
    {
        for (const QString& modifier : modifiers) {
            keyboard.press(modifier);
            pauseFor(30ms);
        }
        keyboard.press(key);
        pauseFor(120ms);
        keyboard.release(key);
        for (const QString& modifier : modifiers) {
            keyboard.release(modifier);
        }
    }

    bool settlesAt(DesktopWindows::WindowId window, const QRect& frame)
    {
        return spinUntil([&] { return windows.frame(window) == frame; }, 5s);
    }

    std::string frameText(DesktopWindows::WindowId window)
    {
        const QRect f = windows.frame(window).value_or(QRect());
        return QStringLiteral("%1,%2 %3x%4")
            .arg(f.x())
            .arg(f.y())
            .arg(f.width())
            .arg(f.height())
            .toStdString();
    }

    static QStringList tileChord() { return {"Control_L", "Alt_L", "Shift_L"}; }
    static QStringList swapChord() { return {"Control_L", "Alt_L"}; }

    X11TestClient keyboard;
    ResidentAppProcess app{QStringLiteral(MIVORA_BINARY)};
    EventLoopClock clock;
    X11DisplayConnection connection;
    X11EventPump pump{connection.get(), clock};
    X11DesktopWindows windows{pump};
    std::vector<std::unique_ptr<TestFieldProcess>> fields;
};

TEST_F(WindowTilingEndToEndTest, HalvesThenSwapWithTheWindowBeside)
{
    const auto first = open(QStringLiteral("Tiling first"));
    holdChord(tileChord(), QStringLiteral("Left"));
    EXPECT_TRUE(settlesAt(first, leftHalf)) << frameText(first);

    const auto second = open(QStringLiteral("Tiling second"));
    holdChord(tileChord(), QStringLiteral("Right"));
    EXPECT_TRUE(settlesAt(second, rightHalf)) << frameText(second);

    activate(first);
    holdChord(swapChord(), QStringLiteral("Right"));
    EXPECT_TRUE(settlesAt(first, rightHalf)) << frameText(first);
    EXPECT_TRUE(settlesAt(second, leftHalf)) << frameText(second);
}

TEST_F(WindowTilingEndToEndTest, HalvesLeaveOutThePanelsOfTheDesktop)
{
    // A 40 px bar along the top and a 60 px launcher down the left, each from another client.
    const DockPanel top(keyboard.display(), {0, 0, 1600, 40}, {0, 0, 40, 0, 0, 0, 0, 0, 0, 1599, 0, 0});
    const DockPanel left(keyboard.display(), {0, 40, 60, 960}, {60, 0, 0, 0, 40, 999, 0, 0, 0, 0, 0, 0});
    const QRect visible(60, 40, 1540, 960);
    ASSERT_TRUE(spinUntil([&] {
        const QList<DesktopWindows::Screen> screens = windows.screens();
        return !screens.isEmpty() && screens.first().visibleFrame == visible;
    }));

    const auto window = open(QStringLiteral("Tiling beside panels"));
    holdChord(tileChord(), QStringLiteral("Left"));
    EXPECT_TRUE(settlesAt(window, {60, 40, 770, 960})) << frameText(window);
    holdChord(tileChord(), QStringLiteral("Right"));
    EXPECT_TRUE(settlesAt(window, {830, 40, 770, 960})) << frameText(window);
}

TEST_F(WindowTilingEndToEndTest, ArrangesTheFourFrontMostOfFiveWindows)
{
    QList<DesktopWindows::WindowId> opened;
    for (int index = 0; index < 5; ++index) {
        opened.append(open(QStringLiteral("Tiling %1").arg(index)));
    }
    const QRect hindmost = windows.frame(opened.first()).value_or(QRect());
    holdChord(swapChord(), QStringLiteral("4"));

    // The last opened is in front.
    const QRect quarters[] = {{0, 0, 800, 500}, {800, 0, 800, 500}, {0, 500, 800, 500}, {800, 500, 800, 500}};
    for (int index = 0; index < 4; ++index) {
        EXPECT_TRUE(settlesAt(opened[4 - index], quarters[index]))
            << index << ": " << frameText(opened[4 - index]);
    }
    EXPECT_EQ(windows.frame(opened.first()), hindmost);
}

TEST_F(WindowTilingEndToEndTest, AWindowWiderThanItsCellEndsOnTheScreensEdge)
{
    const auto wide = open(QStringLiteral("Tiling wide"), 1000);
    holdChord(tileChord(), QStringLiteral("Right"));
    EXPECT_TRUE(spinUntil(
        [&] {
            const QRect f = windows.frame(wide).value_or(QRect());
            return f.x() + f.width() == 1600 && f.width() >= 1000;
        },
        5s))
        << frameText(wide);
}

TEST_F(WindowTilingEndToEndTest, EachWindowKeepsToItsOwnMonitor)
{
    // Two monitors side by side on the one output of the private server.
    ASSERT_TRUE(
        runTool(QStringLiteral("xrandr"), {"--setmonitor", "MivoraLeft", "800/211x1000/264+0+0", "screen"}));
    ASSERT_TRUE(
        runTool(QStringLiteral("xrandr"), {"--setmonitor", "MivoraRight", "800/211x1000/264+800+0", "none"}));
    const auto onLeft = open(QStringLiteral("Tiling on left"), 200);
    ASSERT_TRUE(
        runTool(QStringLiteral("xdotool"), {"windowmove", "--sync", QString::number(onLeft), "100", "100"}));
    holdChord(tileChord(), QStringLiteral("Right"));
    const auto onRight = open(QStringLiteral("Tiling on right"), 200);
    ASSERT_TRUE(runTool(QStringLiteral("xdotool"),
                        {"windowmove", "--sync", QString::number(onRight), "1000", "100"}));
    holdChord(tileChord(), QStringLiteral("Left"));

    EXPECT_TRUE(settlesAt(onLeft, {400, 0, 400, 1000})) << frameText(onLeft);
    EXPECT_TRUE(settlesAt(onRight, {800, 0, 400, 1000})) << frameText(onRight);
    runTool(QStringLiteral("xrandr"), {"--delmonitor", "MivoraRight"});
    runTool(QStringLiteral("xrandr"), {"--delmonitor", "MivoraLeft"});
}

TEST_F(WindowTilingEndToEndTest, AltDragOfOneWindowOntoAnotherSwapsThem)
{
    const auto dragged = open(QStringLiteral("Tiling dragged"));
    holdChord(tileChord(), QStringLiteral("Left"));
    ASSERT_TRUE(settlesAt(dragged, leftHalf)) << frameText(dragged);
    const auto target = open(QStringLiteral("Tiling target"));
    holdChord(tileChord(), QStringLiteral("Right"));
    ASSERT_TRUE(settlesAt(target, rightHalf)) << frameText(target);

    // The window manager moves the window while Alt is held; the swap follows the drop.
    const auto xdotool = [](const QStringList& arguments) {
        return runTool(QStringLiteral("xdotool"), arguments);
    };
    ASSERT_TRUE(xdotool({"mousemove", "--sync", "400", "500"}));
    keyboard.press(QStringLiteral("Alt_L"));
    ASSERT_TRUE(xdotool({"mousedown", "1"}));
    for (int x = 450; x <= 1200; x += 50) {
        xdotool({"mousemove", "--sync", QString::number(x), "500"});
        pauseFor(15ms);
    }
    ASSERT_TRUE(xdotool({"mouseup", "1"}));
    pauseFor(150ms);
    keyboard.release(QStringLiteral("Alt_L"));

    EXPECT_TRUE(settlesAt(dragged, rightHalf)) << frameText(dragged);
    EXPECT_TRUE(settlesAt(target, leftHalf)) << frameText(target);
}

} // namespace
