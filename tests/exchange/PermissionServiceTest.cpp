#include "exchange/PermissionService.h"

#include "AwaitTask.h"
#include "FakeProcessRunner.h"
#include "exchange/PermissionToolError.h"

#include <gtest/gtest.h>

namespace {

TEST(PermissionServiceTest, ResetsBothServicesForEveryIdentifierAndTurnsRefusalsIntoSkipLines)
{
    FakeProcessRunner runner;
    runner.answer = [](const QStringList& arguments) {
        if (arguments.last() == u"ai.mivora.native") {
            return ProcessResult{std::nullopt, 0, {}};
        }
        return ProcessResult{std::nullopt, 1, QByteArray("  No such bundle identifier \"x\"\n")};
    };
    const QStringList lines = AwaitTask::run(PermissionService(runner).resetMivoraPermissions());
    ASSERT_EQ(lines.size(), 10);
    EXPECT_EQ(lines[0], QStringLiteral("reset Accessibility ai.mivora.native"));
    EXPECT_EQ(lines[1],
              QStringLiteral("skip Accessibility ai.mivora.desktop No such bundle identifier \"x\""));
    EXPECT_EQ(lines[5], QStringLiteral("reset ListenEvent ai.mivora.native"));
    EXPECT_EQ(lines[9],
              QStringLiteral("skip ListenEvent com.mivora.desktop No such bundle identifier \"x\""));
    EXPECT_EQ(runner.commandLines[6],
              (QStringList{"/usr/bin/tccutil", "reset", "ListenEvent", "ai.mivora.desktop"}));

    // Error text that is not UTF-8 gives an empty reason.
    FakeProcessRunner garbled;
    garbled.answer = [](const QStringList&) {
        return ProcessResult{std::nullopt, 2, QByteArray("\xff\xfe bad")};
    };
    EXPECT_EQ(AwaitTask::run(PermissionService(garbled).resetMivoraPermissions()).first(),
              QStringLiteral("skip Accessibility ai.mivora.native "));
}

TEST(PermissionServiceTest, ALaunchFailureEndsTheWholeReset)
{
    FakeProcessRunner runner;
    runner.answer = [](const QStringList&) {
        return ProcessResult{QStringLiteral("execve: No such file or directory"), 0, {}};
    };
    try {
        AwaitTask::run(PermissionService(runner).resetMivoraPermissions());
        ADD_FAILURE() << "the reset went on without its tool";
    } catch (const PermissionToolError& failure) {
        EXPECT_EQ(failure.errorDescription(), QStringLiteral("execve: No such file or directory"));
    }
    EXPECT_EQ(runner.commandLines.size(), 1);
}

} // namespace
