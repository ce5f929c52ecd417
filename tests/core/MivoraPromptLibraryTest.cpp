#include "core/MivoraPromptLibrary.h"

#include "core/AIReplyStyleLibrary.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace {

using MivoraPromptLibrary::builtInStyles;
using MivoraPromptLibrary::mergeSavedStyles;

PromptStyle builtInCopy(const char* id)
{
    return *MivoraPromptLibrary::style(QString::fromUtf8(id), {});
}

PromptStyle customStyle(const char* id, const char* name = "Mine")
{
    return PromptStyle{QString::fromUtf8(id), QString::fromUtf8(name),
                       QStringLiteral("Say it like a pirate."), QStringLiteral("Not assigned"), true};
}

const PromptStyle& entry(const QList<PromptStyle>& styles, const char* id)
{
    for (const auto& style : styles) {
        if (style.id == QLatin1String(id)) {
            return style;
        }
    }
    throw std::runtime_error(id);
}

QStringList idsOf(const QList<PromptStyle>& styles)
{
    QStringList ids;
    for (const auto& style : styles) {
        ids.append(style.id);
    }
    return ids;
}

TEST(PromptCatalogue, BothFamiliesShipTheSameSeventeenIdsInOneOrder)
{
    QStringList replyIds;
    for (const auto& style : AIReplyStyleLibrary::builtInStyles()) {
        replyIds.append(style.id);
    }
    const QStringList ids = idsOf(builtInStyles());
    EXPECT_EQ(ids.size(), 17);
    EXPECT_EQ(ids, replyIds);
    EXPECT_EQ(ids.first(), u"original");
    EXPECT_EQ(ids.last(), u"translate");
    EXPECT_EQ(MivoraPromptLibrary::builtInStyleIds().size(), 17);
    for (const auto& style : builtInStyles()) {
        EXPECT_TRUE(style.autoReplace) << qPrintable(style.id);
        EXPECT_FALSE(style.prompt.isEmpty()) << qPrintable(style.id);
    }
    EXPECT_EQ(entry(builtInStyles(), "emoji").hotkey, u"Alt+E");
    EXPECT_EQ(entry(builtInStyles(), "short").hotkey, u"Not assigned");
    EXPECT_EQ(entry(builtInStyles(), "professional").name, QStringLiteral("Профессионально"));
}

TEST(PromptCatalogue, CurrentPromptsAreNotMistakenForOutdatedOnes)
{
    // If a shipped prompt matched an old-prompt rule, every user edit of that style would be thrown away.
    EXPECT_EQ(mergeSavedStyles(builtInStyles()), builtInStyles());
}

TEST(MergeSavedStyles, CustomStylesFollowAllBuiltInsInSavedOrder)
{
    const QList<PromptStyle> saved{customStyle("custom-b"), builtInCopy("polite"), customStyle("custom-a")};
    const auto merged = mergeSavedStyles(saved);
    ASSERT_EQ(merged.size(), 19);
    EXPECT_EQ(merged.mid(0, 17), builtInStyles());
    EXPECT_EQ(merged[17], saved[0]);
    EXPECT_EQ(merged[18], saved[2]);
}

TEST(MergeSavedStyles, EmptySavedListGivesTheCatalogue)
{
    EXPECT_EQ(mergeSavedStyles({}), builtInStyles());
}

TEST(MergeSavedStyles, UserEditsOfABuiltInSurvive)
{
    PromptStyle friendly = builtInCopy("friendly");
    friendly.name = QStringLiteral("Warm");
    friendly.prompt = QStringLiteral("Sound like an old friend.");
    friendly.hotkey = QStringLiteral("Control+F");
    friendly.autoReplace = false;
    EXPECT_EQ(entry(mergeSavedStyles({friendly}), "friendly"), friendly);
}

TEST(MergeSavedStyles, EmptyFieldsOfABuiltInAreFilledFromTheCatalogue)
{
    PromptStyle shortStyle{QStringLiteral("short"), QStringLiteral("Brief"), QString(), QString(), true};
    const auto merged = entry(mergeSavedStyles({shortStyle}), "short");
    EXPECT_EQ(merged.name, u"Brief");
    EXPECT_EQ(merged.prompt, builtInCopy("short").prompt);
    EXPECT_EQ(merged.hotkey, u"Not assigned");

    PromptStyle nameless = builtInCopy("humor");
    nameless.name.clear();
    EXPECT_EQ(entry(mergeSavedStyles({nameless}), "humor").name, QStringLiteral("С юмором"));
}

TEST(MergeSavedStyles, CustomStylesAreTakenAsTheyAre)
{
    const PromptStyle blank{QStringLiteral("custom-1"), QString(), QString(), QString(), false};
    EXPECT_EQ(mergeSavedStyles({blank}).last(), blank);
}

TEST(MergeSavedStyles, OutdatedPromptTakesCatalogueNameAndPromptButKeepsHotkey)
{
    PromptStyle friendly{QStringLiteral("friendly"), QStringLiteral("Warm"),
                         QStringLiteral("Rewrite clearly in a warm, friendly tone."), QStringLiteral("Alt+8"),
                         false};
    const auto merged = entry(mergeSavedStyles({friendly}), "friendly");
    EXPECT_EQ(merged.name, builtInCopy("friendly").name);
    EXPECT_EQ(merged.prompt, builtInCopy("friendly").prompt);
    EXPECT_EQ(merged.hotkey, u"Alt+8");
    EXPECT_FALSE(merged.autoReplace);
}

struct OutdatedCase {
    const char* id;
    const char* prompt;
    bool outdated;
};

class OutdatedPrompt : public ::testing::TestWithParam<OutdatedCase> {};

TEST_P(OutdatedPrompt, IsRecognised)
{
    const auto& param = GetParam();
    PromptStyle saved = builtInCopy(param.id);
    saved.prompt = QString::fromUtf8(param.prompt);
    const auto merged = entry(mergeSavedStyles({saved}), param.id);
    EXPECT_EQ(merged.prompt, param.outdated ? builtInCopy(param.id).prompt : saved.prompt);
}

INSTANTIATE_TEST_SUITE_P(
    MergeSavedStyles, OutdatedPrompt,
    ::testing::Values(OutdatedCase{"original", "Fix obvious typos.", true},
                      OutdatedCase{"original", "Strictly proofread the text", true},
                      OutdatedCase{"original", "Proofread only. Fix clear errors", true},
                      // The match is on the start of the text and respects case.
                      OutdatedCase{"original", "fix obvious typos.", false},
                      OutdatedCase{"original", "Please Fix obvious typos.", false},
                      OutdatedCase{"emoji", "please Add fitting emojis here", true},
                      OutdatedCase{"emoji", "Then Add appropriate emojis.", true},
                      OutdatedCase{"emoji", "Insert only fitting emojis into the text", true},
                      OutdatedCase{"emoji", "add fitting emojis", false},
                      OutdatedCase{"expert", "Rewrite clearly like an expert would.", true},
                      // A marker belongs to its own id only.
                      OutdatedCase{"polite", "Rewrite clearly like an expert would.", false},
                      OutdatedCase{"translate", "Rewrite clearly in a polite way", false}));

TEST(MergeSavedStyles, EmojiHotkeyIsAlwaysTheCatalogues)
{
    PromptStyle emoji = builtInCopy("emoji");
    emoji.hotkey = QStringLiteral("Alt+9");
    emoji.name = QStringLiteral("Smileys");
    const auto merged = entry(mergeSavedStyles({emoji}), "emoji");
    EXPECT_EQ(merged.hotkey, u"Alt+E");
    EXPECT_EQ(merged.name, u"Smileys");
}

TEST(MergeSavedStyles, IsIdempotent)
{
    PromptStyle outdated = builtInCopy("original");
    outdated.prompt = QStringLiteral("Correct only clear mistakes.");
    outdated.hotkey = QStringLiteral("Alt+0");
    PromptStyle edited = builtInCopy("casual");
    edited.prompt.clear();
    edited.name = QStringLiteral("Chill");
    PromptStyle emoji = builtInCopy("emoji");
    emoji.hotkey = QStringLiteral("Alt+9");
    const QList<PromptStyle> saved{customStyle("custom-x"), edited, outdated, emoji, customStyle("custom-y")};

    const auto once = mergeSavedStyles(saved);
    EXPECT_EQ(mergeSavedStyles(once), once);
}

TEST(MergeSavedStylesDeathTest, DuplicateIdStopsTheProcess)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const QList<PromptStyle> saved{customStyle("custom-1"), builtInCopy("short"),
                                   customStyle("custom-1", "Again")};
    EXPECT_DEATH(mergeSavedStyles(saved), "Duplicate values for key: 'custom-1'");
}

TEST(StyleLookup, SearchesTheGivenListFirstThenTheCatalogue)
{
    PromptStyle friendly = builtInCopy("friendly");
    friendly.name = QStringLiteral("Warm");
    const QList<PromptStyle> list{customStyle("custom-1"), friendly, customStyle("custom-1", "Shadowed")};

    EXPECT_EQ(MivoraPromptLibrary::style(QStringLiteral("friendly"), list)->name, u"Warm");
    EXPECT_EQ(MivoraPromptLibrary::style(QStringLiteral("custom-1"), list)->name, u"Mine");
    EXPECT_EQ(MivoraPromptLibrary::style(QStringLiteral("friendly"), {})->name, QStringLiteral("Дружелюбно"));
    EXPECT_FALSE(MivoraPromptLibrary::style(QStringLiteral("custom-1"), {}).has_value());
}

TEST(BackendActionChoice, FirstMatchingRuleWins)
{
    using MivoraPromptLibrary::backendAction;
    const auto action = [](const char* id) { return QuickAction(QString::fromUtf8(id)); };

    EXPECT_EQ(backendAction(action("translate"), builtInCopy("emoji")), BackendAction::translate);
    EXPECT_EQ(backendAction(action("style:translate"), builtInCopy("original")), BackendAction::translate);
    EXPECT_EQ(backendAction(action("style:friendly"), builtInCopy("translate")), BackendAction::translate);
    EXPECT_EQ(backendAction(action("style:emoji"), builtInCopy("emoji")), BackendAction::emoji);
    EXPECT_EQ(backendAction(action("style:original"), builtInCopy("original")), BackendAction::fix);
    EXPECT_EQ(backendAction(action("style:friendly"), builtInCopy("friendly")), BackendAction::improve);
    EXPECT_EQ(backendAction(action("style:custom-1"), customStyle("custom-1")), BackendAction::improve);
}

TEST(PromptStyleJson, RoundTripsAndRequiresEveryKeyWithItsType)
{
    PromptStyle style = customStyle("custom-7");
    style.autoReplace = false;
    EXPECT_EQ(PromptStyle::fromJson(style.toJson()), style);

    for (const char* key : {"id", "name", "prompt", "hotkey", "autoReplace"}) {
        QJsonObject missing = style.toJson();
        missing.remove(QLatin1String(key));
        EXPECT_FALSE(PromptStyle::fromJson(missing).has_value()) << key;
    }
    QJsonObject wrongType = style.toJson();
    wrongType.insert(QLatin1String("autoReplace"), 1);
    EXPECT_FALSE(PromptStyle::fromJson(wrongType).has_value());
    EXPECT_FALSE(PromptStyle::fromJson(QJsonValue(QStringLiteral("custom-7"))).has_value());

    QJsonObject extra = style.toJson();
    extra.insert(QLatin1String("icon"), QStringLiteral("star"));
    EXPECT_EQ(PromptStyle::fromJson(extra), style);
}

} // namespace
