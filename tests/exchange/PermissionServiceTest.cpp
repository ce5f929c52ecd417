#include "exchange/PermissionService.h"

#include "FakeProcessRunner.h"
#include "exchange/PermissionToolError.h"

#include <functional>
#include <gtest/gtest.h>

namespace {

struct Reset {
    FakeProcessRunner runner;
    QStringList lines;
    QString error;
};

QCoro::Task<> collect(QCoro::Task<QStringList> task, Reset* reset)
{
    try {
        reset->lines = co_await std::move(task);
    } catch (const PermissionToolError& failure) {
        reset->error = failure.errorDescription();
    }
}

// Runs the whole reset with the tool answering every call as told.
void reset(Reset& result, std::function<ProcessResult(const QStringList&)> answer)
{
    result.runner.answer = std::move(answer);
    PermissionService service(result.runner);
    collect(service.resetMivoraPermissions(), &result);
}

TEST(PermissionServiceTest, ResetsBothServicesForEveryIdentifierAndTurnsRefusalsIntoSkipLines)
{
    Reset result;
    reset(result, [](const QStringList& arguments) {
        if (arguments.last() == u"ai.mivora.native") {
            return ProcessResult{std::nullopt, 0, {}};
        }
        return ProcessResult{std::nullopt, 1, QByteArray("  No such bundle identifier \"x\"\n")};
    });
    const QStringList& lines = result.lines;
    ASSERT_EQ(lines.size(), 10);
    EXPECT_EQ(lines[0], QStringLiteral("reset Accessibility ai.mivora.native"));
    EXPECT_EQ(lines[1],
              QStringLiteral("skip Accessibility ai.mivora.desktop No such bundle identifier \"x\""));
    EXPECT_EQ(lines[5], QStringLiteral("reset ListenEvent ai.mivora.native"));
    EXPECT_EQ(lines[9],
              QStringLiteral("skip ListenEvent com.mivora.desktop No such bundle identifier \"x\""));
    EXPECT_EQ(result.runner.commandLines[6],
              (QStringList{"/usr/bin/tccutil", "reset", "ListenEvent", "ai.mivora.desktop"}));

    // Error text that is not UTF-8 gives an empty reason.
    Reset garbled;
    reset(garbled, [](const QStringList&) {
        return ProcessResult{std::nullopt, 2, QByteArray("\xff\xfe bad")};
    });
    EXPECT_EQ(garbled.lines.first(), QStringLiteral("skip Accessibility ai.mivora.native "));
}

TEST(PermissionServiceTest, ALaunchFailureEndsTheWholeReset)
{
    Reset result;
    reset(result, [](const QStringList&) {
        return ProcessResult{QStringLiteral("execve: No such file or directory"), 0, {}};
    });
    EXPECT_EQ(result.error, QStringLiteral("execve: No such file or directory"));
    EXPECT_EQ(result.runner.commandLines.size(), 1);
}

} // namespace
