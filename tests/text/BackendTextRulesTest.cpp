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
    return PromptStyle{id, name, "prompt", "Not assigned", true};
}

} // namespace

TEST(SplitTextForBackend, KeepsShortTextsWholeAndCutsLongOnesAtTheBestBreak)
{
    const QString exact = QStringLiteral("  ") + repeated('a', 2496) + "  ";
    EXPECT_EQ(splitTextForBackend(exact, 2500), QStringList{exact});

    const QString noBreaks = repeated('a', 3000);
    EXPECT_EQ(splitTextForBackend(noBreaks, 2500), (QStringList{repeated('a', 2500), repeated('a', 500)}));

    // A paragraph break wins over a later line break or sentence break inside the window.
    const QString mixed = repeated('a', 1000) + "\n\n" + repeated('b', 1000) + "\n" + repeated('c', 400) +
                          ". " + repeated('d', 700);
    const QStringList pieces = splitTextForBackend(mixed, 2500);
    ASSERT_EQ(pieces.size(), 2);
    EXPECT_EQ(pieces[0], repeated('a', 1000));
    EXPECT_TRUE(pieces[1].startsWith(repeated('b', 1000) + "\n" + repeated('c', 400)));

    // A remainder that starts with a sentence break is cut hard.
    EXPECT_EQ(splitTextForBackend(repeated('a', 2500) + ". " + repeated('b', 2600), 2500),
              (QStringList{repeated('a', 2500), ". " + repeated('b', 2498), repeated('b', 102)}));
}

TEST(SplitTextForBackend, CountsUserPerceivedCharacters)
{
    // A family emoji is seven code points and eleven UTF-16 units, but one character.
    const QString family = QStringLiteral("👨‍👩‍👧‍👦");
    EXPECT_EQ(splitTextForBackend(family.repeated(2501), 2500), (QStringList{family.repeated(2500), family}));
}

TEST(NormalizeTranslationCompare, IgnoresCaseBlanksAndMostQuotes)
{
    EXPECT_EQ(normalizeTranslationCompare("  «Hello»\t\n “World”  \"X\" "), "hello» world x");
}

TEST(ServerWritingStyle, BuiltInsHaveWordsAndCustomStylesTheirTrimmedName)
{
    EXPECT_EQ(serverWritingStyle(style("social")), "Social");
    EXPECT_EQ(serverWritingStyle(style("custom-1", "  Pirate \n")), "Pirate");
    // "original" and "translate" have no word of their own.
    EXPECT_EQ(serverWritingStyle(style("original", "Fix")), "Fix");
}

TEST(ReplyUserInstruction, IsEmptyOnlyForUntouchedBuiltIns)
{
    const QString builtInPrompt = QStringLiteral("Write a polite, respectful, and tactful reply.");
    EXPECT_EQ(replyUserInstruction({"polite", {}, builtInPrompt + " ", {}}), QString());
    EXPECT_EQ(replyUserInstruction({"polite", {}, builtInPrompt + " Short.", {}}), builtInPrompt + " Short.");
    EXPECT_EQ(replyUserInstruction({"custom-reply-1", {}, " Be brief. ", {}}), "Be brief.");
}

TEST(LooksLikeBadReply, CatchesEchoesInstructionLeaksAndWordSetsAboveTheThreshold)
{
    EXPECT_TRUE(looksLikeBadReply(" ...!", "Hi"));
    EXPECT_TRUE(looksLikeBadReply("Here is the COPIED chat message", "Hi"));
    EXPECT_TRUE(looksLikeBadReply("HELLO, THERE!", "hello there"));
    EXPECT_TRUE(looksLikeBadReply("Sure: hello there. Thanks", "Hello there"));
    // Rule of the first 80 characters: a long source whose head is repeated.
    const QString longSource =
        QStringLiteral("we need the quarterly report by friday and the slides by monday "
                       "morning at the latest please");
    EXPECT_TRUE(looksLikeBadReply(longSource.left(90) + " ok", longSource));
    // A 17-character source never reaches the word-overlap test.
    EXPECT_FALSE(looksLikeBadReply("see you at the mall", "see you the mall!"));
    EXPECT_FALSE(looksLikeBadReply("Sounds great, see you there!", "Meet at 5?"));

    // The empty plain form of "👍" is in every reply; the rules that compare with the message stay out.
    EXPECT_FALSE(looksLikeBadReply("Glad you like it!", "👍"));
    EXPECT_FALSE(looksLikeBadReply("Что случилось?", "?!…"));
    EXPECT_TRUE(looksLikeBadReply("🙂", "👍"));
    EXPECT_TRUE(looksLikeBadReply("Here is the reply instruction", "👍"));

    // Ten shared words of eleven in the larger set: 0.909 > 0.82.
    const QString source = QStringLiteral("one two three four five six seven eight nine ten");
    EXPECT_TRUE(looksLikeBadReply("ten nine eight seven six five four three two one eleven", source));
    // Ten of thirteen: 0.77, a real reply that happens to share words.
    EXPECT_FALSE(
        looksLikeBadReply("ten nine eight seven six five four three two one eleven twelve thirteen", source));
}

TEST(BackendRequest, ChoosesTheWireWordsOfEachAction)
{
    // "action task mode writingStyle replyTo" of the body; mode, rewriteMode and the style id go together.
    const auto words = [](BackendAction action, const char* styleId) {
        BackendRequest::Arguments arguments;
        arguments.text = "text";
        arguments.action = action;
        arguments.style = style(styleId);
        arguments.replyTo = "message";
        const QJsonObject body = QJsonDocument::fromJson(BackendRequest::make(arguments).toJson()).object();
        EXPECT_EQ(body.value("rewriteMode"), body.value("mode"));
        EXPECT_EQ(body.value("styleId"), body.value("writingStyle"));
        QStringList values;
        for (const char* key : {"action", "task", "mode", "writingStyle", "replyTo"}) {
            values.append(body.value(key).toString());
        }
        return values.join(' ');
    };
    EXPECT_EQ(words(BackendAction::fix, "original"), "fix fix fix  ");
    EXPECT_EQ(words(BackendAction::fix, "emoji"), "fix fix fix Emoji ");
    EXPECT_EQ(words(BackendAction::improve, "original"), "improve improve improve  ");
    EXPECT_EQ(words(BackendAction::improve, "polite"), "style_rewrite style_rewrite style_rewrite Polite ");
    EXPECT_EQ(words(BackendAction::emoji, "friendly"), "emoji emoji emoji Friendly ");
    EXPECT_EQ(words(BackendAction::translate, "polite"), "translate translate translate  ");
    EXPECT_EQ(words(BackendAction::translate, "emoji"), "translate translate translate Emoji ");
    EXPECT_EQ(words(BackendAction::assistant, "expert"), "assistant assistant assistant  ");
    EXPECT_EQ(words(BackendAction::chatReply, "casual"),
              "chat_reply write_chat_reply chat_reply Casual message");
}
