#include "AwaitTask.h"
#include "TestFieldProcess.h"
#include "core/EventLoopClock.h"
#include "platform/x11/X11ApplicationWorkspace.h"
#include "platform/x11/X11DisplayConnection.h"
#include "platform/x11/X11EventPump.h"
#include "platform/x11/X11ModifierKeyState.h"
#include "platform/x11/X11Pasteboard.h"
#include "platform/x11/X11PrimarySelection.h"
#include "platform/x11/X11SyntheticKeyboard.h"

#include <gtest/gtest.h>

// Last: Xlib's macros (None, Bool) break the test framework's headers.
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>

namespace {

constexpr quint16 keyA = 0;
constexpr quint16 keyC = 8;
constexpr quint16 keyReturn = 36;

class X11ExchangeAdaptersTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(connection) << "needs an X server";
        ASSERT_TRUE(waitForWindowManager()) << "needs an EWMH window manager";
    }

    bool waitForFront(qint32 processIdentifier)
    {
        return spinUntil([&] {
            const std::optional<RunningApplication> front = workspace.frontmostApplication();
            return front && front->processIdentifier == processIdentifier;
        });
    }

    // Presses or releases a key as the user would, through the server's test extension.
    void physicalKey(const char* name, bool down)
    {
        XTestFakeKeyEvent(connection.get(), XKeysymToKeycode(connection.get(), XStringToKeysym(name)),
                          down ? True : False, CurrentTime);
        XSync(connection.get(), False);
    }

    X11DisplayConnection connection;
    EventLoopClock clock;
    X11EventPump pump{connection.get(), clock};
    X11ApplicationWorkspace workspace{pump};
};

TEST_F(X11ExchangeAdaptersTest, WorkspaceFollowsActivationsLiveAndActivatesThroughTheWindowManager)
{
    QList<RunningApplication> activations;
    const ListenerSubscription listening = workspace.subscribeToActivations(
        [&](const RunningApplication& application) { activations.append(application); });
    // A second listener hears the same activations, until it lets go.
    int heardBySecond = 0;
    ListenerSubscription second =
        workspace.subscribeToActivations([&](const RunningApplication&) { ++heardBySecond; });
    const auto lastActivated = [&] {
        return activations.isEmpty() ? 0 : activations.last().processIdentifier;
    };

    TestFieldProcess one;
    ASSERT_TRUE(one.start(QStringLiteral("MivoraFieldOne"), QStringLiteral("Field one")));
    ASSERT_TRUE(spinUntil([&] { return lastActivated() == one.processIdentifier(); }));
    // The front application is described by its window's properties.
    ASSERT_TRUE(waitForFront(one.processIdentifier()));
    const RunningApplication front = *workspace.frontmostApplication();
    EXPECT_EQ(front.bundleIdentifier, QStringLiteral("MivoraFieldOne"));
    EXPECT_EQ(front.name, QStringLiteral("Field one"));
    EXPECT_TRUE(front.isActive);
    EXPECT_EQ(workspace.application(QStringLiteral("MivoraFieldOne")), front);
    EXPECT_EQ(workspace.application(one.processIdentifier()), front);
    EXPECT_EQ(workspace.runningApplications(), QList<RunningApplication>{front});
    EXPECT_FALSE(workspace.application(QStringLiteral("NoSuchClass")));
    EXPECT_NE(workspace.currentProcessIdentifier(), one.processIdentifier());

    TestFieldProcess two;
    ASSERT_TRUE(two.start(QStringLiteral("MivoraFieldTwo"), QStringLiteral("Field two")));
    ASSERT_TRUE(spinUntil([&] { return lastActivated() == two.processIdentifier(); }));
    EXPECT_EQ(activations.last().bundleIdentifier, QStringLiteral("MivoraFieldTwo"));
    EXPECT_TRUE(activations.last().isActive);
    EXPECT_EQ(heardBySecond, activations.size());
    second.reset();

    // Another program switches windows while this one keeps asking the server about them, as the focus
    // tracking does; the change must still be reported.
    ASSERT_TRUE(runTool(QStringLiteral("wmctrl"), {QStringLiteral("-a"), QStringLiteral("Field one")}));
    EXPECT_TRUE(spinUntil([&] {
        workspace.frontmostApplication();
        return lastActivated() == one.processIdentifier();
    }));

    ASSERT_TRUE(workspace.activate(two.processIdentifier(), 0));
    EXPECT_TRUE(spinUntil([&] { return lastActivated() == two.processIdentifier(); }));
    EXPECT_TRUE(waitForFront(two.processIdentifier()));
    EXPECT_LT(heardBySecond, activations.size());

    const QList<RunningApplication> running = workspace.runningApplications();
    ASSERT_EQ(running.size(), 2);
    for (const RunningApplication& application : running) {
        EXPECT_EQ(application.isActive, application.processIdentifier == two.processIdentifier())
            << application.bundleIdentifier.toStdString();
    }
    EXPECT_FALSE(workspace.activate(two.processIdentifier() + 100000, 0));
}

// A move to another window of the application in front is a window's activation, not an application's.
TEST_F(X11ExchangeAdaptersTest, AnotherWindowOfTheApplicationInFrontIsNoNewApplication)
{
    int applications = 0;
    QList<qint32> windows;
    const ListenerSubscription byApplication =
        workspace.subscribeToActivations([&](const RunningApplication&) { ++applications; });
    const ListenerSubscription byWindow = workspace.subscribeToWindowActivations(
        [&](const RunningApplication& application) { windows.append(application.processIdentifier); });
    TestFieldProcess field;
    field.addOtherWindow(QStringLiteral("Second window of the field"));
    ASSERT_TRUE(field.start(QStringLiteral("MivoraFieldOne"), QStringLiteral("Field one")));
    ASSERT_TRUE(waitForFront(field.processIdentifier()));
    ASSERT_TRUE(spinUntil([&] { return applications > 0; }));
    const int applicationsBefore = applications;

    const std::optional<QByteArray> listed =
        runTool(QStringLiteral("xdotool"),
                {"search", "--onlyvisible", "--pid", QString::number(field.processIdentifier())});
    const QList<QByteArray> both = listed ? listed->trimmed().split('\n') : QList<QByteArray>();
    ASSERT_EQ(both.size(), 2) << (listed ? listed->toStdString() : "no answer");
    // Away from whichever of the two is in front, and back, and away again.
    const QByteArray active = QByteArray::number(qulonglong(workspace.activeWindow()));
    const QString other = QString::fromLatin1(both[0] == active ? both[1] : both[0]);
    const QString back = QString::fromLatin1(active);
    for (const QString& window : {other, back, other}) {
        const qsizetype heard = windows.size();
        ASSERT_TRUE(runTool(QStringLiteral("xdotool"), {QStringLiteral("windowactivate"), window}));
        ASSERT_TRUE(spinUntil([&] { return windows.size() > heard; }));
        EXPECT_EQ(windows.last(), field.processIdentifier());
    }
    EXPECT_EQ(applications, applicationsBefore);
}

TEST_F(X11ExchangeAdaptersTest, ShortcutsReachTheFocusedWindowWithControlAndShiftInTerminals)
{
    TestFieldProcess field;
    ASSERT_TRUE(field.start(QStringLiteral("MivoraFieldOne"), QStringLiteral("Field one")));
    ASSERT_TRUE(waitForFront(field.processIdentifier()));
    ASSERT_TRUE(field.waitForFocus());
    QString front = QStringLiteral("MivoraFieldOne");
    X11SyntheticKeyboard keyboard(connection.get(), [&] { return front; });
    // What the field saw of one whole shortcut.
    const auto shortcut = [&](quint16 key) {
        EXPECT_TRUE(keyboard.pressShortcut(key) && keyboard.releaseShortcut(key));
        return field.nextShortcut();
    };
    EXPECT_EQ(shortcut(keyA), QStringLiteral("ctrl A"));
    EXPECT_EQ(shortcut(keyC), QStringLiteral("ctrl C"));
    // Seen as a terminal: copy takes Shift along, select-all does not.
    front = QStringLiteral("XTerm");
    EXPECT_EQ(shortcut(keyC), QStringLiteral("shift ctrl C"));
    EXPECT_EQ(shortcut(keyA), QStringLiteral("ctrl A"));

    EXPECT_FALSE(keyboard.pressShortcut(keyReturn));
    EXPECT_FALSE(X11SyntheticKeyboard(nullptr, {}).pressShortcut(keyA));
}

TEST_F(X11ExchangeAdaptersTest, ModifierStateFollowsKeysHeldAndReleased)
{
    X11ModifierKeyState modifiers(connection.get());
    EXPECT_FALSE(modifiers.isAnyModifierHeld());
    for (const char* key : {"Shift_L", "Shift_R", "Control_L", "Control_R", "Alt_L", "Super_L"}) {
        physicalKey(key, true);
        EXPECT_TRUE(modifiers.isAnyModifierHeld()) << key;
        physicalKey(key, false);
        EXPECT_FALSE(modifiers.isAnyModifierHeld()) << key;
    }
    physicalKey("a", true);
    EXPECT_FALSE(modifiers.isAnyModifierHeld());
    physicalKey("a", false);

    // A shortcut holds its modifier until it is released.
    X11SyntheticKeyboard keyboard(connection.get(), {});
    ASSERT_TRUE(keyboard.pressShortcut(keyC));
    XSync(connection.get(), False);
    EXPECT_TRUE(modifiers.isAnyModifierHeld());
    ASSERT_TRUE(keyboard.releaseShortcut(keyC));
    XSync(connection.get(), False);
    EXPECT_FALSE(modifiers.isAnyModifierHeld());

    EXPECT_FALSE(X11ModifierKeyState(nullptr).isAnyModifierHeld());
}

} // namespace

TEST_F(X11ExchangeAdaptersTest, PrimaryGivesTheKeyboardSelectionOfItsOwnerAndNothingToAnyOtherProcess)
{
    TestFieldProcess field;
    ASSERT_TRUE(field.start(QStringLiteral("MivoraPrimaryField"), QStringLiteral("Primary field"),
                            QStringLiteral("ghbdtn")));
    ASSERT_TRUE(field.waitForFocus());
    // Shift+Home from the end of the line, as a person selects: the toolkit then offers PRIMARY.
    physicalKey("End", true);
    physicalKey("End", false);
    physicalKey("Shift_L", true);
    physicalKey("Home", true);
    physicalKey("Home", false);
    physicalKey("Shift_L", false);
    ASSERT_TRUE(spinUntil([&] { return field.selection() == QStringLiteral("ghbdtn"); }));

    X11Pasteboard pasteboard(pump);
    X11PrimarySelection primary(connection.get(), pasteboard);
    ASSERT_TRUE(spinUntil([&] {
        return primary.processOfWindow(pasteboard.primaryOwner()) == field.processIdentifier();
    })) << "the owner's process is named by the server";
    EXPECT_EQ(AwaitTask::run(primary.selectedText(field.processIdentifier())), QStringLiteral("ghbdtn"));
    EXPECT_EQ(AwaitTask::run(primary.selectedText(field.processIdentifier() + 1)), std::nullopt);
}
