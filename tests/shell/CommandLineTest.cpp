#include "shell/CommandLine.h"

#include <QBuffer>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

using Mode = CommandLine::Mode;

TEST(CommandLineTest, ParsesTheThreeFormsAndRefusesTheRest)
{
    EXPECT_EQ(CommandLine::parse({}).mode, Mode::resident);
    for (const char* help : {"--help", "-h", "help"}) {
        EXPECT_EQ(CommandLine::parse({help, "run"}).mode, Mode::help) << help;
    }

    const CommandLine fromStdin = CommandLine::parse({"run", "layout"});
    EXPECT_EQ(fromStdin.mode, Mode::run);
    EXPECT_EQ(fromStdin.action, "layout");
    EXPECT_FALSE(fromStdin.text.has_value());
    // An empty argument is text, not a request to read standard input.
    EXPECT_EQ(CommandLine::parse({"run", "fix", ""}).text, QString(""));

    // The unknown command's text is checked on the built program below.
    EXPECT_EQ(CommandLine::parse({"--run"}).mode, Mode::invalid);
    for (const QStringList& wrongCount : {QStringList{"run"}, QStringList{"run", "fix", "a", "b"}}) {
        const CommandLine invalid = CommandLine::parse(wrongCount);
        EXPECT_EQ(invalid.mode, Mode::invalid);
        EXPECT_EQ(invalid.error, "Usage: mivora run ACTION [TEXT]");
    }
}

TEST(CommandLineTest, ReadsStandardInputOnlyWithoutATextArgument)
{
    QBuffer input;
    input.setData("ghbdtn\n\n");
    input.open(QIODevice::ReadOnly);
    EXPECT_EQ(CommandLine::parse({"run", "layout", "given"}).inputText(input), "given");
    EXPECT_EQ(input.pos(), 0);
    // Only the one newline that a pipe adds is dropped.
    EXPECT_EQ(CommandLine::parse({"run", "layout"}).inputText(input), "ghbdtn\n");
}

// The built program in a sandbox of its own: empty settings, no display, nothing of the user's touched.
class ProgramTest : public ::testing::Test {
protected:
    struct Outcome {
        int exitCode = -1;
        QString out;
        QString err;
    };

    // Standard input ends after input unless keepInputOpen, as at a terminal where the user types nothing.
    Outcome mivora(const QStringList& arguments, const QByteArray& input = {}, bool keepInputOpen = false)
    {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove(QStringLiteral("DISPLAY"));
        for (const char* variable : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR"}) {
            environment.insert(QString::fromLatin1(variable), home.path());
        }
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(MIVORA_PROGRAM), arguments);
        process.write(input);
        if (!keepInputOpen) {
            process.closeWriteChannel();
        }
        if (!process.waitForFinished(20000) || process.exitStatus() != QProcess::NormalExit) {
            ADD_FAILURE() << "mivora did not end normally";
            process.kill();
            process.waitForFinished();
        }
        return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }

    QTemporaryDir home;
};

TEST_F(ProgramTest, HelpGoesToStandardOutputAndMistakesToStandardErrorWithStatusTwo)
{
    const Outcome help = mivora({"--help"});
    EXPECT_EQ(help.exitCode, 0);
    EXPECT_EQ(help.out, CommandLine::usage());
    EXPECT_TRUE(help.err.isEmpty());

    const Outcome unknown = mivora({"bogus"});
    EXPECT_EQ(unknown.exitCode, 2);
    EXPECT_TRUE(unknown.out.isEmpty());
    EXPECT_EQ(unknown.err, "Unknown command: bogus\n\n" + CommandLine::usage());
}

TEST_F(ProgramTest, RunPrintsTheResultOfTheArgumentOrOfStandardInput)
{
    const Outcome fromArgument = mivora({"run", "layout", "ghbdtn"});
    EXPECT_EQ(fromArgument.exitCode, 0);
    EXPECT_EQ(fromArgument.out, "привет\n");
    EXPECT_TRUE(fromArgument.err.isEmpty());

    EXPECT_EQ(mivora({"run", "layout"}, "ghbdtn\n").out, "привет\n");
    // With a text argument, an open standard input is never waited for.
    EXPECT_EQ(mivora({"run", "layout", "ghbdtn"}, {}, true).out, "привет\n");
}

TEST_F(ProgramTest, AFailedRunExitsWithStatusOneAndItsTextOnStandardError)
{
    // Neither reaches the backend: an unknown action has no home, an empty text is refused first.
    const Outcome unknown = mivora({"run", "bogus", "text"});
    EXPECT_EQ(unknown.exitCode, 1);
    EXPECT_TRUE(unknown.out.isEmpty());
    EXPECT_EQ(unknown.err, "Native Swift action is not ported yet: Style bogus\n");

    const Outcome empty = mivora({"run", "friendly"}, " \n");
    EXPECT_EQ(empty.exitCode, 1);
    EXPECT_EQ(empty.err, "No text to process.\n");

    // The layout fix of nothing is nothing, and that is a result.
    const Outcome emptyFix = mivora({"run", "layout", ""});
    EXPECT_EQ(emptyFix.exitCode, 0);
    EXPECT_EQ(emptyFix.out, "\n");
}

} // namespace
