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
    return PromptStyle{id, name, "Say it like a pirate.", "Not assigned", true};
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

template <typename Style> QStringList idsOf(const QList<Style>& styles)
{
    QStringList ids;
    for (const auto& style : styles) {
        ids.append(style.id);
    }
    return ids;
}

TEST(PromptCatalogue, BothFamiliesShipTheSameSeventeenIdsAndNoCurrentPromptLooksOutdated)
{
    EXPECT_EQ(idsOf(builtInStyles()), idsOf(AIReplyStyleLibrary::builtInStyles()));
    EXPECT_EQ(builtInStyles().size(), 17);
    // If a shipped prompt matched an old-prompt rule, every user edit of that style would be thrown away.
    EXPECT_EQ(mergeSavedStyles(builtInStyles()), builtInStyles());
    EXPECT_EQ(mergeSavedStyles({}), builtInStyles());
}

TEST(MergeSavedStyles, KeepsEditsFillsEmptyFieldsAndPutsCustomStylesLastInSavedOrder)
{
    PromptStyle friendly = builtInCopy("friendly");
    friendly.name = "Warm";
    friendly.prompt = "Sound like an old friend.";
    friendly.hotkey = "Control+F";
    friendly.autoReplace = false;
    const PromptStyle blank{"custom-1", "", "", "", false};
    const PromptStyle shortStyle{"short", "Brief", "", "", true};
    PromptStyle nameless = builtInCopy("humor");
    nameless.name.clear();

    const auto merged = mergeSavedStyles({customStyle("custom-b"), friendly, blank, shortStyle, nameless});
    ASSERT_EQ(merged.size(), 19);
    EXPECT_EQ(idsOf(merged).mid(0, 17), idsOf(builtInStyles()));
    EXPECT_EQ(merged.mid(17), (QList<PromptStyle>{customStyle("custom-b"), blank}));
    EXPECT_EQ(entry(merged, "friendly"), friendly);
    EXPECT_EQ(entry(merged, "short").name, u"Brief");
    EXPECT_EQ(entry(merged, "short").prompt, builtInCopy("short").prompt);
    EXPECT_EQ(entry(merged, "short").hotkey, u"Not assigned");
    EXPECT_EQ(entry(merged, "humor").name, "С юмором");
}

TEST(MergeSavedStyles, OutdatedPromptsAndTheEmojiHotkeyComeFromTheCatalogue)
{
    const PromptStyle friendly{"friendly", "Warm", "Rewrite clearly in a warm, friendly tone.", "Alt+8",
                               false};
    PromptStyle emoji = builtInCopy("emoji");
    emoji.hotkey = "Alt+9";
    emoji.name = "Smileys";
    const auto merged = mergeSavedStyles({friendly, emoji});
    const PromptStyle& migrated = entry(merged, "friendly");
    EXPECT_EQ(migrated.name, builtInCopy("friendly").name);
    EXPECT_EQ(migrated.prompt, builtInCopy("friendly").prompt);
    EXPECT_EQ(migrated.hotkey, u"Alt+8");
    EXPECT_FALSE(migrated.autoReplace);
    EXPECT_EQ(entry(merged, "emoji").hotkey, u"Alt+E");
    EXPECT_EQ(entry(merged, "emoji").name, u"Smileys");
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
                      // Case-sensitive, at the start of the text; the emoji marker anywhere in it.
                      OutdatedCase{"original", "fix obvious typos.", false},
                      OutdatedCase{"original", "Please Fix obvious typos.", false},
                      OutdatedCase{"emoji", "please Add fitting emojis here", true},
                      OutdatedCase{"emoji", "add fitting emojis", false},
                      // A marker belongs to its own id only.
                      OutdatedCase{"polite", "Rewrite clearly like an expert would.", false}));

TEST(MergeSavedStyles, IsIdempotent)
{
    PromptStyle outdated = builtInCopy("original");
    outdated.prompt = "Correct only clear mistakes.";
    PromptStyle emoji = builtInCopy("emoji");
    emoji.hotkey = "Alt+9";
    const auto once = mergeSavedStyles({customStyle("custom-x"), outdated, emoji, customStyle("custom-y")});
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
    using MivoraPromptLibrary::style;
    PromptStyle friendly = builtInCopy("friendly");
    friendly.name = "Warm";
    const QList<PromptStyle> list{customStyle("custom-1"), friendly, customStyle("custom-1", "Shadowed")};
    EXPECT_EQ(style("friendly", list)->name, u"Warm");
    EXPECT_EQ(style("custom-1", list)->name, u"Mine");
    EXPECT_EQ(style("friendly", {})->name, "Дружелюбно");
    EXPECT_FALSE(style("custom-1", {}).has_value());
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
    EXPECT_FALSE(PromptStyle::fromJson(QJsonValue("custom-7")).has_value());

    QJsonObject extra = style.toJson();
    extra.insert(QLatin1String("icon"), "star");
    EXPECT_EQ(PromptStyle::fromJson(extra), style);
}

} // namespace
