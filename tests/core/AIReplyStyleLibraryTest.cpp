#include "core/AIReplyStyleLibrary.h"

#include <gtest/gtest.h>

namespace {

using AIReplyStyleLibrary::builtInStyles;
using AIReplyStyleLibrary::restoredStyles;

AIReplyStyle builtInCopy(qsizetype index)
{
    return builtInStyles().at(index);
}

TEST(RestoredStyles, KeepsEditsFillsBlanksAndAppendsCustomStyles)
{
    EXPECT_EQ(restoredStyles({}), builtInStyles());
    const AIReplyStyle custom{"custom-reply-1", QString(), "Be brief.", QString()};
    AIReplyStyle polite = builtInCopy(3);
    polite.name = QStringLiteral("Kind");
    polite.prompt.clear();
    polite.hotkey = QStringLiteral("Alt+P");
    // No old-prompt rules for replies: even a text that looks old is the user's.
    AIReplyStyle friendly = builtInCopy(1);
    friendly.prompt = QStringLiteral("Rewrite clearly in a warm, friendly tone.");

    const auto restored = restoredStyles({custom, polite, friendly});
    ASSERT_EQ(restored.size(), 18);
    EXPECT_EQ(restored[1], friendly);
    EXPECT_EQ(restored[3].name, u"Kind");
    EXPECT_EQ(restored[3].prompt, builtInCopy(3).prompt);
    EXPECT_EQ(restored[3].hotkey, u"Alt+P");
    EXPECT_EQ(restored[17], custom);
    EXPECT_EQ(restoredStyles(restored), restored);
}

TEST(RestoredStylesDeathTest, DuplicateIdStopsTheProcess)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(restoredStyles({builtInCopy(2), builtInCopy(2)}), "Duplicate values for key: 'emoji'");
}

TEST(BackendStyleName, MapsBuiltInsToTheBackendVocabularyAndCustomStylesToNothing)
{
    const auto word = [](const char* id) {
        return AIReplyStyleLibrary::backendStyleName(AIReplyStyle{id, "Any", "", ""});
    };
    EXPECT_EQ(word("original"), u"Friendly");
    EXPECT_EQ(word("emoji"), u"Emoji");
    EXPECT_EQ(word("custom-reply-1"), u"");
    for (const auto& style : builtInStyles()) {
        EXPECT_FALSE(AIReplyStyleLibrary::backendStyleName(style).isEmpty()) << qPrintable(style.id);
    }
}

TEST(AIReplyStyleJson, RequiresAllFourStringKeys)
{
    const AIReplyStyle style = builtInCopy(0);
    EXPECT_EQ(AIReplyStyle::fromJson(style.toJson()), style);
    QJsonObject wrongType = style.toJson();
    wrongType.insert(QLatin1String("hotkey"), QJsonValue::Null);
    EXPECT_FALSE(AIReplyStyle::fromJson(wrongType).has_value());
}

} // namespace
