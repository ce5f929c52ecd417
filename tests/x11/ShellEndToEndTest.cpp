#include "EventLoopWait.h"
#include "ResidentAppProcess.h"

#include <QProcess>
#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {

bool windowShown(const QString& title)
{
    return runTool(QStringLiteral("xdotool"), {QStringLiteral("search"), QStringLiteral("--onlyvisible"),
                                               QStringLiteral("--name"), QStringLiteral("^%1$").arg(title)})
        .has_value();
}

// The program as a person meets it on a desktop with a tray: its window, its tray entry, its overlay.
class ShellEndToEndTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        tray.start(QStringLiteral("trayer"),
                   {QStringLiteral("--edge"), QStringLiteral("top"), QStringLiteral("--align"),
                    QStringLiteral("right"), QStringLiteral("--widthtype"), QStringLiteral("request"),
                    QStringLiteral("--height"), QStringLiteral("24")});
        ASSERT_TRUE(tray.waitForStarted()) << "needs a tray host (trayer)";
        // The tray host owns the tray selection once it is ready to dock icons.
        ASSERT_TRUE(spinUntil([] {
            return runTool(QStringLiteral("xdotool"),
                           {QStringLiteral("search"), QStringLiteral("--class"), QStringLiteral("trayer")})
                .has_value();
        }));
        app.setSetting(QStringLiteral("mivora.openMainWindowOnLaunch"), true);
    }
    void TearDown() override
    {
        tray.kill();
        tray.waitForFinished();
    }
    void startWithWindow()
    {
        ASSERT_TRUE(app.start());
        ASSERT_TRUE(app.waitForHotkeys()) << app.standardError().toStdString();
        ASSERT_TRUE(spinUntil([] { return windowShown(QStringLiteral("MivoraAI")); }, 10s));
    }
    // What the window manager's close button does.
    static void closeMainWindow()
    {
        ASSERT_TRUE(runTool(QStringLiteral("wmctrl"), {QStringLiteral("-c"), QStringLiteral("MivoraAI")}));
    }

    QProcess tray;
    ResidentAppProcess app{QStringLiteral(MIVORA_BINARY)};
};

} // namespace

TEST_F(ShellEndToEndTest, ClosingTheWindowKeepsTheProgramInTheTrayAndSigtermStillEndsIt)
{
    startWithWindow();
    closeMainWindow();
    ASSERT_TRUE(spinUntil([] { return !windowShown(QStringLiteral("MivoraAI")); }, 5s));
    spinUntil([] { return false; }, 600ms);
    EXPECT_TRUE(app.isRunning()) << "the close was turned into a hide";

    // The hidden window must not hold the program up when it is told to end.
    EXPECT_EQ(app.terminate(), 0);
}

TEST_F(ShellEndToEndTest, WithTheTrayIconOffClosingTheWindowQuits)
{
    app.setSetting(QStringLiteral("mivora.menuBarIconVisible"), false);
    startWithWindow();
    closeMainWindow();
    EXPECT_TRUE(spinUntil([&] { return !app.isRunning(); }, 10s)) << "no way back, so the program ends";
}

TEST_F(ShellEndToEndTest, AFailureShowsTheOverlayUntilItsResetAndTheWindowStaysShut)
{
    app.setSetting(QStringLiteral("mivora.openMainWindowOnLaunch"), false);
    app.setSetting(QStringLiteral("mivora.layoutHotkey"), QStringLiteral("Alt+Nope"));
    ASSERT_TRUE(app.start());
    ASSERT_TRUE(spinUntil([] { return windowShown(QStringLiteral("MivoraAI status")); }, 10s));
    EXPECT_FALSE(windowShown(QStringLiteral("MivoraAI")));
    // A failure stays 1.3 s; the overlay goes with it.
    EXPECT_TRUE(spinUntil([] { return !windowShown(QStringLiteral("MivoraAI status")); }, 5s));
    EXPECT_EQ(app.terminate(), 0);
}
