#include "text/BackendTextRules.h"

#include "text/BackendRequest.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <gtest/gtest.h>

namespace {

QString repeated(char c, int count)
{
    return QString(QLatin1Char(c)).repeated(count);
}

PromptStyle style(const QString& id, const QString& name = QStringLiteral("Custom"))
{
    return PromptStyle{id, name, QStringLiteral("prompt"), QStringLiteral("Not assigned"), true};
}

} // namespace

TEST(SplitTextForBackend, KeepsShortTextsWholeAndCutsLongOnesAtTheBestBreak)
{
    const QString exact = QStringLiteral("  ") + repeated('a', 2496) + QStringLiteral("  ");
    EXPECT_EQ(splitTextForBackend(exact, 2500), QStringList{exact});

    const QString noBreaks = repeated('a', 3000);
    EXPECT_EQ(splitTextForBackend(noBreaks, 2500), (QStringList{repeated('a', 2500), repeated('a', 500)}));

    // A paragraph break wins over a later line break or sentence break inside the window.
    const QString mixed = repeated('a', 1000) + QStringLiteral("\n\n") + repeated('b', 1000) +
                          QStringLiteral("\n") + repeated('c', 400) + QStringLiteral(". ") +
                          repeated('d', 700);
    const QStringList pieces = splitTextForBackend(mixed, 2500);
    ASSERT_EQ(pieces.size(), 2);
    EXPECT_EQ(pieces[0], repeated('a', 1000));
    EXPECT_TRUE(pieces[1].startsWith(repeated('b', 1000) + QStringLiteral("\n") + repeated('c', 400)));
}

TEST(SplitTextForBackend, CountsUserPerceivedCharacters)
{
    // A family emoji is seven code points and eleven UTF-16 units, but one character.
    const QString family = QStringLiteral("👨‍👩‍👧‍👦");
    const QString text = family.repeated(2501);
    const QStringList pieces = splitTextForBackend(text, 2500);
    ASSERT_EQ(pieces.size(), 2);
    EXPECT_EQ(pieces[0], family.repeated(2500));
    EXPECT_EQ(pieces[1], family);
}

TEST(SplitTextForBackend, ARemainderStartingWithASentenceBreakIsCutHard)
{
    const QString text = repeated('a', 2500) + QStringLiteral(". ") + repeated('b', 2600);
    const QStringList pieces = splitTextForBackend(text, 2500);
    ASSERT_EQ(pieces.size(), 3);
    EXPECT_EQ(pieces[0], repeated('a', 2500));
    EXPECT_EQ(pieces[1], QStringLiteral(". ") + repeated('b', 2498));
    EXPECT_EQ(pieces[2], repeated('b', 102));
}

TEST(NormalizeTranslationCompare, IgnoresCaseBlanksAndMostQuotes)
{
    EXPECT_EQ(normalizeTranslationCompare(QStringLiteral("  «Hello»\t\n “World”  \"X\" ")),
              QStringLiteral("hello» world x"));
}

TEST(ServerWritingStyle, BuiltInsHaveWordsAndCustomStylesTheirTrimmedName)
{
    EXPECT_EQ(serverWritingStyle(style(QStringLiteral("social"))), QStringLiteral("Social"));
    EXPECT_EQ(serverWritingStyle(style(QStringLiteral("custom-1"), QStringLiteral("  Pirate \n"))),
              QStringLiteral("Pirate"));
    // "original" and "translate" have no word of their own.
    EXPECT_EQ(serverWritingStyle(style(QStringLiteral("original"), QStringLiteral("Fix"))),
              QStringLiteral("Fix"));
}

TEST(ReplyUserInstruction, IsEmptyOnlyForUntouchedBuiltIns)
{
    const QString builtInPrompt = QStringLiteral("Write a polite, respectful, and tactful reply.");
    EXPECT_EQ(replyUserInstruction({QStringLiteral("polite"), {}, builtInPrompt + QStringLiteral(" "), {}}),
              QString());
    EXPECT_EQ(
        replyUserInstruction({QStringLiteral("polite"), {}, builtInPrompt + QStringLiteral(" Short."), {}}),
        builtInPrompt + QStringLiteral(" Short."));
    EXPECT_EQ(replyUserInstruction({QStringLiteral("custom-reply-1"), {}, QStringLiteral(" Be brief. "), {}}),
              QStringLiteral("Be brief."));
}

TEST(LooksLikeBadReply, CatchesEchoesAndInstructionLeaks)
{
    EXPECT_TRUE(looksLikeBadReply(QStringLiteral(" ...!"), QStringLiteral("Hi")));
    EXPECT_TRUE(looksLikeBadReply(QStringLiteral("Here is the COPIED chat message"), QStringLiteral("Hi")));
    EXPECT_TRUE(looksLikeBadReply(QStringLiteral("HELLO, THERE!"), QStringLiteral("hello there")));
    EXPECT_TRUE(
        looksLikeBadReply(QStringLiteral("Sure: hello there. Thanks"), QStringLiteral("Hello there")));
    // Rule of the first 80 characters: a long source whose head is repeated.
    const QString longSource =
        QStringLiteral("we need the quarterly report by friday and the slides by monday "
                       "morning at the latest please");
    EXPECT_TRUE(looksLikeBadReply(longSource.left(90) + QStringLiteral(" ok"), longSource));
    // A 17-character source never reaches the word-overlap test.
    EXPECT_FALSE(
        looksLikeBadReply(QStringLiteral("see you at the mall"), QStringLiteral("see you the mall!")));
    EXPECT_FALSE(
        looksLikeBadReply(QStringLiteral("Sounds great, see you there!"), QStringLiteral("Meet at 5?")));
}

TEST(LooksLikeBadReply, AMessageWithoutWordsOnlyMeetsTheRulesOnTheReply)
{
    // The empty plain form of "👍" is in every reply; the rules that compare with the message stay out.
    EXPECT_FALSE(looksLikeBadReply(QStringLiteral("Glad you like it!"), QStringLiteral("👍")));
    EXPECT_FALSE(looksLikeBadReply(QStringLiteral("Что случилось?"), QStringLiteral("?!…")));
    EXPECT_TRUE(looksLikeBadReply(QStringLiteral("🙂"), QStringLiteral("👍")));
    EXPECT_TRUE(looksLikeBadReply(QStringLiteral("Here is the reply instruction"), QStringLiteral("👍")));
}

TEST(LooksLikeBadReply, ComparesWordSetsAboveTheThreshold)
{
    // Ten shared words of eleven in the larger set: 0.909 > 0.82.
    const QString source = QStringLiteral("one two three four five six seven eight nine ten");
    EXPECT_TRUE(
        looksLikeBadReply(QStringLiteral("ten nine eight seven six five four three two one eleven"), source));
    // Ten of thirteen: 0.77, a real reply that happens to share words.
    EXPECT_FALSE(looksLikeBadReply(
        QStringLiteral("ten nine eight seven six five four three two one eleven twelve thirteen"), source));
}

TEST(BackendRequest, ChoosesTheWireWordsOfEachAction)
{
    struct Row {
        BackendAction action;
        const char* styleId;
        const char* wireAction;
        const char* task;
        const char* mode;
        const char* writingStyle;
    };
    const Row rows[] = {
        {BackendAction::fix, "original", "fix", "fix", "fix", ""},
        {BackendAction::fix, "emoji", "fix", "fix", "fix", "Emoji"},
        {BackendAction::improve, "original", "improve", "improve", "improve", ""},
        {BackendAction::improve, "polite", "style_rewrite", "style_rewrite", "style_rewrite", "Polite"},
        {BackendAction::emoji, "friendly", "emoji", "emoji", "emoji", "Friendly"},
        {BackendAction::translate, "polite", "translate", "translate", "translate", ""},
        {BackendAction::translate, "emoji", "translate", "translate", "translate", "Emoji"},
        {BackendAction::assistant, "expert", "assistant", "assistant", "assistant", ""},
        {BackendAction::chatReply, "casual", "chat_reply", "write_chat_reply", "chat_reply", "Casual"},
    };
    for (const Row& row : rows) {
        BackendRequest::Arguments arguments;
        arguments.text = QStringLiteral("text");
        arguments.action = row.action;
        arguments.style = style(QString::fromLatin1(row.styleId));
        arguments.replyTo = QStringLiteral("message");
        const QJsonObject body = QJsonDocument::fromJson(BackendRequest::make(arguments).toJson()).object();
        SCOPED_TRACE(row.styleId);
        EXPECT_EQ(body.value(QStringLiteral("action")).toString(), QLatin1String(row.wireAction));
        EXPECT_EQ(body.value(QStringLiteral("task")).toString(), QLatin1String(row.task));
        EXPECT_EQ(body.value(QStringLiteral("mode")).toString(), QLatin1String(row.mode));
        EXPECT_EQ(body.value(QStringLiteral("rewriteMode")).toString(), QLatin1String(row.mode));
        EXPECT_EQ(body.value(QStringLiteral("writingStyle")).toString(), QLatin1String(row.writingStyle));
        EXPECT_EQ(body.value(QStringLiteral("styleId")).toString(), QLatin1String(row.writingStyle));
        EXPECT_EQ(body.value(QStringLiteral("replyTo")).toString(),
                  row.action == BackendAction::chatReply ? QStringLiteral("message") : QString());
        EXPECT_EQ(body.value(QStringLiteral("replyMode")).toString(), QStringLiteral("chat_reply"));
        EXPECT_EQ(body.size(), 21);
    }
}
