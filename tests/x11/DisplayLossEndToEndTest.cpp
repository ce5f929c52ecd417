#include "EventLoopWait.h"
#include "ResidentAppProcess.h"

#include <csignal>
#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {

struct LossCase {
    const char* name;
    // How the server goes: killed outright, or shut down in order.
    int signal;
};

// The real program on an X server of the test's own, which the test ends under it.
class DisplayLossEndToEndTest : public ::testing::TestWithParam<LossCase> {
protected:
    void SetUp() override
    {
        server.start(QStringLiteral("Xvfb"), {QStringLiteral("-displayfd"), QStringLiteral("1"),
                                              QStringLiteral("-nolisten"), QStringLiteral("tcp")});
        QByteArray number;
        ASSERT_TRUE(
            spinUntil([&] { return (number += server.readAllStandardOutput()).endsWith('\n'); }, 20s));
        // The program and the copying tool go to that server; this process stays on the suite's.
        ownDisplay = qgetenv("DISPLAY");
        qputenv("DISPLAY", ":" + number.trimmed());
    }

    void TearDown() override
    {
        qputenv("DISPLAY", ownDisplay);
        server.kill();
        server.waitForFinished();
    }

    QProcess server;
    QByteArray ownDisplay;
};

TEST_P(DisplayLossEndToEndTest, KeepsTheHistoryAndEndsWithOneLine)
{
    ResidentAppProcess app(QStringLiteral(MIVORA_BINARY));
    ASSERT_TRUE(app.start());
    ASSERT_TRUE(app.waitForHotkeys()) << app.standardError().toStdString();
    // Two copies in another program, a person's pause apart.
    for (const char* text : {"first copied text", "second copied text"}) {
        ASSERT_TRUE(runTool(QStringLiteral("xclip"),
                            {QStringLiteral("-selection"), QStringLiteral("clipboard")}, text));
        pauseFor(1500ms);
    }

    ::kill(pid_t(server.processId()), GetParam().signal);
    ASSERT_TRUE(spinUntil([&] { return !app.isRunning(); }, 10s));
    const QString standardError = app.standardError();
    ASSERT_TRUE(app.exitCode().has_value()) << "crashed: " << standardError.toStdString();
    EXPECT_NE(*app.exitCode(), 0);
    // Neither Qt's nor Xlib's own farewell, only the program's.
    EXPECT_TRUE(
        standardError.endsWith(QStringLiteral("MivoraAI: the connection to the X server was lost.\n")))
        << standardError.toStdString();
    EXPECT_FALSE(standardError.contains(QStringLiteral("XIO")) ||
                 standardError.contains(QStringLiteral("X11 connection")))
        << standardError.toStdString();
    const QByteArray history = app.storedHistory();
    EXPECT_TRUE(history.contains("first copied text") && history.contains("second copied text"))
        << history.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Server, DisplayLossEndToEndTest,
                         ::testing::Values(LossCase{"killed", SIGKILL}, LossCase{"terminated", SIGTERM}),
                         [](const auto& info) { return std::string(info.param.name); });

} // namespace
