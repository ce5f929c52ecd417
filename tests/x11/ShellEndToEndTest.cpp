#include "EventLoopWait.h"
#include "ResidentAppProcess.h"

#include <QProcess>
#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {

// The windows a process has mapped, by X id.
QStringList windowsOf(qint64 pid)
{
    const auto found =
        runTool(QStringLiteral("xdotool"), {QStringLiteral("search"), QStringLiteral("--onlyvisible"),
                                            QStringLiteral("--pid"), QString::number(pid)});
    return found ? QString::fromLatin1(*found).split(u'\n', Qt::SkipEmptyParts) : QStringList();
}

// The program's window that sits inside the tray host's panel: its docked tray icon.
std::optional<QString> dockedIcon(qint64 pid)
{
    const auto hosts =
        runTool(QStringLiteral("xdotool"),
                {QStringLiteral("search"), QStringLiteral("--class"), QStringLiteral("trayer")});
    if (!hosts) {
        return std::nullopt;
    }
    for (const QString& host : QString::fromLatin1(*hosts).split(u'\n', Qt::SkipEmptyParts)) {
        const auto tree =
            runTool(QStringLiteral("xwininfo"), {QStringLiteral("-tree"), QStringLiteral("-id"), host});
        for (const QString& window : windowsOf(pid)) {
            const QString hex = QStringLiteral("0x") + QString::number(window.toULongLong(), 16) + u' ';
            if (tree && QString::fromLatin1(*tree).contains(hex)) {
                return window;
            }
        }
    }
    return std::nullopt;
}

// The program as a person meets it on a desktop with a tray: its window, its tray entry, its overlay.
class ShellEndToEndTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(startTrayHost(tray)) << "needs a tray host (trayer)";
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

TEST_F(ShellEndToEndTest, AnInvalidHotkeyIsReportedOnTheOverlayUntilItsResetAndTheWindowStaysShut)
{
    app.setSetting(QStringLiteral("mivora.openMainWindowOnLaunch"), false);
    app.setSetting(QStringLiteral("mivora.layoutHotkey"), QStringLiteral("Alt+Nope"));
    ASSERT_TRUE(app.start());
    ASSERT_TRUE(spinUntil([] { return windowShown(QStringLiteral("MivoraAI status")); }, 10s));
    EXPECT_FALSE(windowShown(QStringLiteral("MivoraAI")));
    EXPECT_TRUE(app.waitForStandardError(QStringLiteral("mivora.status: Invalid hotkey: Alt+Nope\n")))
        << app.standardError().toStdString();
    // A failure stays 1.3 s; the overlay goes with it, and the program keeps running.
    EXPECT_TRUE(spinUntil([] { return !windowShown(QStringLiteral("MivoraAI status")); }, 5s));
    EXPECT_EQ(app.terminate(), 0);
}

TEST_F(ShellEndToEndTest, TheTrayIconDocksAndItsQuitItemEndsTheProgram)
{
    app.setSetting(QStringLiteral("mivora.openMainWindowOnLaunch"), false);
    ASSERT_TRUE(app.start());
    ASSERT_TRUE(app.waitForHotkeys()) << app.standardError().toStdString();
    std::optional<QString> icon;
    ASSERT_TRUE(spinUntil([&] { return (icon = dockedIcon(app.processId())).has_value(); }, 10s))
        << "the tray icon never docked in the tray host";

    const int windowsBefore = int(windowsOf(app.processId()).size());
    // Right-click opens the menu; "Quit MivoraAI" is its last item, reached from the keyboard the menu grabs.
    ASSERT_TRUE(runTool(QStringLiteral("xdotool"),
                        {QStringLiteral("mousemove"), QStringLiteral("--window"), *icon, QStringLiteral("10"),
                         QStringLiteral("10"), QStringLiteral("click"), QStringLiteral("3")}));
    ASSERT_TRUE(spinUntil([&] { return windowsOf(app.processId()).size() > windowsBefore; }, 5s))
        << "no menu appeared";
    pauseFor(300ms);
    ASSERT_TRUE(runTool(QStringLiteral("xdotool"),
                        {QStringLiteral("key"), QStringLiteral("--delay"), QStringLiteral("120"),
                         QStringLiteral("Up"), QStringLiteral("Return")}));
    ASSERT_TRUE(spinUntil([&] { return !app.isRunning(); }, 10s)) << "Quit did not end the program";
    EXPECT_EQ(app.exitCode(), 0);
}
