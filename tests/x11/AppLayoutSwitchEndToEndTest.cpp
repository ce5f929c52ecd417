#include "EventLoopWait.h"
#include "ResidentAppProcess.h"
#include "TestFieldProcess.h"
#include "core/AppLayoutRule.h"
#include "core/EventLoopClock.h"
#include "platform/x11/X11ApplicationWorkspace.h"
#include "platform/x11/X11DisplayConnection.h"
#include "platform/x11/X11EventPump.h"
#include "platform/x11/X11InputSources.h"

#include <QElapsedTimer>
#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {

// The real program with a rule for one of two windows of other processes, on a us,ru keyboard. The test
// changes the group as the user's layout key does: as another client.
class AppLayoutSwitchEndToEndTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(keyboard.isConnected()) << "needs an X server";
        ASSERT_TRUE(waitForWindowManager()) << "needs an EWMH window manager";
        ASSERT_TRUE(
            runTool(QStringLiteral("setxkbmap"), {QStringLiteral("-layout"), QStringLiteral("us,ru")}));
        const QList<AppLayoutRule> rules{{QUuid::createUuid(), QStringLiteral("MivoraRuledField"),
                                          QStringLiteral("Ruled"), QString(), QStringLiteral("Russian"),
                                          true}};
        app.setSetting(QStringLiteral("mivora.appLayoutSwitching.enabled"), true);
        app.setSetting(QStringLiteral("mivora.appLayoutSwitching.rules"), AppLayoutRule::encodeList(rules));
    }

    // The active group's identifier, "us" or "ru".
    QString group()
    {
        const std::optional<PlatformInputSource> current = keyboard.currentSource();
        return current && current->id ? *current->id : QString();
    }
    void selectGroup(const QString& id)
    {
        for (const PlatformInputSource& source : keyboard.inputSources()) {
            if (source.id == id) {
                ASSERT_EQ(keyboard.selectSource(source.ref), 0);
            }
        }
    }
    // Brings the field's window forward through the window manager, and measures from the moment the
    // desktop reports it in front.
    void activate(const TestFieldProcess& field, QElapsedTimer& sinceActivation)
    {
        ASSERT_TRUE(workspace.activate(field.processIdentifier(), 0));
        ASSERT_TRUE(spinUntil(
            [&] {
                const auto front = workspace.frontmostApplication();
                return front && front->processIdentifier == field.processIdentifier();
            },
            5s));
        sinceActivation.start();
    }

    X11InputSources keyboard;
    X11DisplayConnection connection;
    EventLoopClock clock;
    X11EventPump pump{connection.get(), clock};
    X11ApplicationWorkspace workspace{pump};
    ResidentAppProcess app{QStringLiteral(MIVORA_BINARY)};
};

TEST_F(AppLayoutSwitchEndToEndTest, TheRuledWindowGetsItsLayoutAndHoldsItForAMoment)
{
    ASSERT_TRUE(app.start());
    ASSERT_TRUE(app.waitForHotkeys());
    TestFieldProcess ruled;
    TestFieldProcess plain;
    ASSERT_TRUE(ruled.start(QStringLiteral("MivoraRuledField"), QStringLiteral("Ruled")));
    ASSERT_TRUE(plain.start(QStringLiteral("MivoraPlainField"), QStringLiteral("Plain")));
    selectGroup(QStringLiteral("us"));
    pauseFor(300ms);
    ASSERT_EQ(group(), QStringLiteral("us")) << "a window without a rule leaves the layout alone";

    QElapsedTimer since;
    activate(ruled, since);
    ASSERT_TRUE(spinUntil([&] { return group() == QStringLiteral("ru"); }, 2s));
    EXPECT_LT(since.elapsed(), 150) << "the first switch comes at activation, before the first repeat";

    // By hand after the last repeat but within the guard: undone.
    pauseFor(std::chrono::milliseconds(1000 - since.elapsed()));
    selectGroup(QStringLiteral("us"));
    EXPECT_TRUE(spinUntil([&] { return group() == QStringLiteral("ru"); }, 400ms));
    ASSERT_LT(since.elapsed(), 1500);

    // After the guard: the user's choice stands.
    pauseFor(std::chrono::milliseconds(1700 - since.elapsed()));
    selectGroup(QStringLiteral("us"));
    pauseFor(600ms);
    EXPECT_EQ(group(), QStringLiteral("us"));

    // Back to the window without a rule: nothing changes, nothing comes back from the ruled one.
    selectGroup(QStringLiteral("ru"));
    activate(plain, since);
    pauseFor(1s);
    EXPECT_EQ(group(), QStringLiteral("ru"));
}

} // namespace
