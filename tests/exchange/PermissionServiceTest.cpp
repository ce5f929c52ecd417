#include "exchange/PermissionService.h"

#include "FakeProcessRunner.h"
#include "exchange/PermissionToolError.h"

#include <gtest/gtest.h>

namespace {

QCoro::Task<> collect(QCoro::Task<QStringList> task, QStringList* lines, QString* error)
{
    try {
        *lines = co_await std::move(task);
    } catch (const PermissionToolError& failure) {
        *error = failure.errorDescription();
    }
}

TEST(PermissionServiceTest, ResetsBothServicesForEveryIdentifierAndTurnsRefusalsIntoSkipLines)
{
    FakeProcessRunner runner;
    runner.answer = [](const QStringList& arguments) {
        if (arguments.last() == u"ai.mivora.native") {
            return ProcessResult{std::nullopt, 0, {}};
        }
        return ProcessResult{std::nullopt, 1, QByteArray("  No such bundle identifier \"x\"\n")};
    };
    PermissionService service(runner);
    QStringList lines;
    QString error;
    collect(service.resetMivoraPermissions(), &lines, &error);

    ASSERT_EQ(lines.size(), 10);
    EXPECT_EQ(lines[0], QStringLiteral("reset Accessibility ai.mivora.native"));
    EXPECT_EQ(lines[1],
              QStringLiteral("skip Accessibility ai.mivora.desktop No such bundle identifier \"x\""));
    EXPECT_EQ(lines[5], QStringLiteral("reset ListenEvent ai.mivora.native"));
    EXPECT_EQ(lines[9],
              QStringLiteral("skip ListenEvent com.mivora.desktop No such bundle identifier \"x\""));
    EXPECT_EQ(runner.commandLines[6],
              (QStringList{"/usr/bin/tccutil", "reset", "ListenEvent", "ai.mivora.desktop"}));
}

TEST(PermissionServiceTest, NonUtf8ErrorTextGivesAnEmptyReason)
{
    FakeProcessRunner runner;
    runner.answer = [](const QStringList&) {
        return ProcessResult{std::nullopt, 2, QByteArray("\xff\xfe bad")};
    };
    PermissionService service(runner);
    QStringList lines;
    QString error;
    collect(service.resetMivoraPermissions(), &lines, &error);
    EXPECT_EQ(lines.first(), QStringLiteral("skip Accessibility ai.mivora.native "));
}

TEST(PermissionServiceTest, ALaunchFailureEndsTheWholeReset)
{
    FakeProcessRunner runner;
    runner.answer = [](const QStringList&) {
        return ProcessResult{QStringLiteral("execve: No such file or directory"), 0, {}};
    };
    PermissionService service(runner);
    QStringList lines;
    QString error;
    collect(service.resetMivoraPermissions(), &lines, &error);
    EXPECT_EQ(error, QStringLiteral("execve: No such file or directory"));
    EXPECT_EQ(runner.commandLines.size(), 1);
}

} // namespace
