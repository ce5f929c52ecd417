#include "text/KeyboardLayoutService.h"

#include "FakeInputSourceProvider.h"
#include "core/MivoraSettings.h"
#include "text/KeyboardLayoutError.h"

#include <gtest/gtest.h>
#include <ostream>

void PrintTo(const KeyboardLayoutFixResult& result, std::ostream* os)
{
    *os << '{' << result.text.toStdString() << ", " << (result.convertedToLatin ? "toLatin" : "toNative")
        << ", " << result.targetLayoutName.value_or("<none>").toStdString() << '}';
}

namespace {

const QString russianPc = QStringLiteral("Русская — ПК");

KeyboardLayoutFixResult toNative(const QString& text, const QString& target = russianPc)
{
    return {text, false, target};
}

KeyboardLayoutFixResult toLatin(const QString& text, const QString& target = QStringLiteral("ABC"))
{
    return {text, true, target};
}

class KeyboardLayoutServiceTest : public ::testing::Test {
protected:
    KeyboardLayoutFixResult fix(const QString& text) { return service.fix(text, settings); }

    int addLayout(const QString& name, const QString& id)
    {
        return provider.addSource(FakeInputSourceProvider::layout(name, id, {}));
    }

    // Expects the thrown error's exact description.
    template <typename Fn> QString errorOf(Fn fn)
    {
        try {
            fn();
        } catch (const KeyboardLayoutError& error) {
            return error.errorDescription();
        }
        return "<no error>";
    }

    FakeInputSourceProvider provider;
    KeyboardLayoutService service{provider};
    MivoraSettings settings;
};

// --- Fixed tables: no platform sources at all.

TEST_F(KeyboardLayoutServiceTest, FixedTablesDecideOnceForTheWholeText)
{
    EXPECT_EQ(fix("ghbdtn"), toNative("привет"));
    EXPECT_EQ(fix("Ghbdtn"), toNative("Привет"));
    EXPECT_EQ(fix("руддщ"), toLatin("hello"));
    // The comma is a key of both maps; on the way back it is the shifted slash key.
    EXPECT_EQ(fix("Руддщ, цщкдв"), toLatin("Hello? world"));
    // 5 Latin hits against 3: the Cyrillic word is left as it is, not converted per word.
    EXPECT_EQ(fix("hello мир"), toNative("руддщ мир"));
    // Ties go Latin-to-native.
    EXPECT_EQ(fix("ab ши"), toNative("фи ши"));
    EXPECT_EQ(fix(","), toNative("б"));
    EXPECT_EQ(fix(QString()), toNative(QString()));
    EXPECT_EQ(fix(" 2024\t\n"), toNative(" 2024\t\n"));
    EXPECT_EQ(fix("~`\"{}<>?"), toNative("ЁёЭХЪБЮ,"));
}

TEST_F(KeyboardLayoutServiceTest, FixedTablesTakeNamesFromSettingsAndOnlyEmptyMeansDefault)
{
    settings.layoutLatinSource = QStringLiteral(" ");
    settings.layoutNativeSource = QString();
    EXPECT_EQ(fix("руддщ"), toLatin("hello", " "));
    EXPECT_EQ(fix("ghbdtn"), toNative("привет", russianPc));
}

TEST_F(KeyboardLayoutServiceTest, UkrainianNativeNameSelectsTheUkrainianTable)
{
    settings.layoutNativeSource = QStringLiteral("Украинская");
    const QString ukrainian = QStringLiteral("Украинская");
    EXPECT_EQ(fix("Ckfdf Erhf]ys"), toNative("Слава Україні", ukrainian));
    // The key left of 1 gives an apostrophe, and with Shift a slash.
    EXPECT_EQ(fix("`~"), toNative("'/", ukrainian));

    settings.layoutNativeSource = QStringLiteral("ukrainian");
    EXPECT_EQ(fix("s").text, "і");
}

// --- Characters are extended grapheme clusters compared under canonical equivalence.

TEST_F(KeyboardLayoutServiceTest, ConvertsByCharacterNotByCodeUnit)
{
    // "йцу" with the first letter spelled и + combining breve.
    EXPECT_EQ(fix("\u0438\u0306\u0446\u0443"), toLatin("qwe"));
    // "n" with a combining accent is its own character, not "n" followed by a mark; clusters pass whole.
    const QString family = QStringLiteral("👨\u200D👩\u200D👧");
    EXPECT_EQ(fix(family + " ghbdtn\u0301"), toNative(family + " приве"
                                                               "n\u0301"));
    EXPECT_EQ(fix("руддщ" + family), toLatin("hello" + family));
}

// --- Maps from the platform's layouts.

class PlatformMapsTest : public KeyboardLayoutServiceTest {
protected:
    void SetUp() override
    {
        latin = provider.addSource(
            FakeInputSourceProvider::layout("U.S.", "com.apple.keylayout.US", u"abc1 ", u"ABC! "));
        native = provider.addSource(
            FakeInputSourceProvider::layout(russianPc, "com.apple.keylayout.RussianWin", u"жэщ1 ", u"ЖЭЩ! "));
    }

    int latin = 0;
    int native = 0;
};

TEST_F(PlatformMapsTest, ConvertsThroughTheRealLayoutsOrFallsToTheTablesWhenTheyChangeNothing)
{
    EXPECT_EQ(fix("abc 1!"), toNative("жэщ 1!", russianPc));
    EXPECT_EQ(fix("ЖЭЩ"), toLatin("ABC", "U.S."));

    // A text the platform's maps leave unchanged goes through the tables, named by the settings.
    settings.layoutNativeSource = QStringLiteral("RussianWin");
    EXPECT_EQ(fix("ghjuhfvvf"), toNative("программа", "RussianWin"));
    EXPECT_EQ(fix(QString()), toNative(QString(), "RussianWin"));
}

TEST_F(PlatformMapsTest, MapsAreBuiltOncePerPairOfIdentifiers)
{
    fix("abc");
    const int afterFirstBuild = provider.translateCalls();
    EXPECT_GT(afterFirstBuild, 0);
    EXPECT_EQ(fix("ЖЭЩ").text, "ABC");
    EXPECT_EQ(provider.translateCalls(), afterFirstBuild);

    provider.source(native).id = QStringLiteral("com.apple.keylayout.Russian");
    provider.source(native).setKey(0, false, "ф");
    EXPECT_EQ(fix("abc").text, "фэщ");
    EXPECT_GT(provider.translateCalls(), afterFirstBuild);
}

TEST_F(PlatformMapsTest, FailedBuildFallsToTablesAndKeepsTheCachedPair)
{
    fix("abc");
    FakeInputSourceProvider::Source noData =
        FakeInputSourceProvider::layout("Ukrainian", "com.apple.keylayout.Ukrainian", u"ї");
    noData.hasKeyLayoutData = false;
    provider.addSource(noData);
    settings.layoutNativeSource = QStringLiteral("Ukrainian");
    EXPECT_EQ(fix("abcs"), toNative("фисі", "Ukrainian"));

    settings.layoutNativeSource = russianPc;
    const int beforeReturn = provider.translateCalls();
    EXPECT_EQ(fix("abc").text, "жэщ");
    EXPECT_EQ(provider.translateCalls(), beforeReturn);
}

TEST_F(PlatformMapsTest, SkipsKeysWithoutOneCharacterOnBothSidesAndLaterKeysWin)
{
    auto& latinKeys = provider.source(latin);
    auto& nativeKeys = provider.source(native);
    latinKeys.setKey(10, false, "x");
    nativeKeys.setKey(10, false, QString()); // a dead key
    latinKeys.setKey(11, false, "y");
    nativeKeys.setKey(11, false, "ый");
    latinKeys.setKey(12, false, "z");
    nativeKeys.setKey(12, false, "😀");
    latinKeys.setKey(13, false, "q");
    nativeKeys.setKey(13, false, "q");
    latinKeys.setKey(127, false, "a");
    nativeKeys.setKey(127, false, "ё");

    EXPECT_EQ(fix("xyzqa"), toNative("xyzqё", russianPc));
}

TEST_F(KeyboardLayoutServiceTest, SameSourceForBothRolesFallsToTables)
{
    // "Russian" contains "us", so it is also the first Latin source.
    provider.addSource(
        FakeInputSourceProvider::layout("Russian", "com.apple.keylayout.Russian", u"йцу", u"ЙЦУ"));
    EXPECT_EQ(fix("ghbdtn"), toNative("привет", russianPc));
    EXPECT_GT(provider.translateCalls(), 0);
}

TEST_F(KeyboardLayoutServiceTest, ListsOnlyNamedIdentifiedKeyboardSources)
{
    using Source = FakeInputSourceProvider::Source;
    const auto add = [&](const char* name, const std::function<void(Source&)>& spoil) {
        Source source = FakeInputSourceProvider::layout(name, QStringLiteral("x.") + name, {});
        spoil(source);
        provider.addSource(source);
    };
    add("ABC", [](Source&) {});
    add("No name", [](Source& s) { s.name.reset(); });
    add("No id", [](Source& s) { s.id.reset(); });
    add("No type", [](Source& s) { s.type.reset(); });
    add("Emoji", [](Source& s) { s.type = PlatformInputSource::Type::other; });
    add("Pinyin", [](Source& s) { s.type = PlatformInputSource::Type::keyboardInputMode; });
    add("ABC", [](Source&) {});
    EXPECT_EQ(service.suggestion().availableNames, (QStringList{"ABC", "Pinyin", "ABC"}));
}

// --- Finding a source by a loose name, seen through switchLayout.

TEST_F(KeyboardLayoutServiceTest, FindsByNameOrIdentifierInListOrder)
{
    const int abc = addLayout("ABC", "com.apple.keylayout.ABC");
    const int russian = addLayout(russianPc, "com.apple.keylayout.RussianWin");
    const int international = addLayout("U.S. International — PC", "com.apple.keylayout.USInternational-PC");
    addLayout("U.S.", "com.apple.keylayout.US");

    service.switchLayout("Russian");
    EXPECT_EQ(provider.current(), russian);
    service.switchLayout("  abc\n");
    EXPECT_EQ(provider.current(), abc);
    // An earlier source that merely contains the name wins over a later exact match.
    service.switchLayout("U.S.");
    EXPECT_EQ(provider.current(), international);
    service.switchLayout("com.apple.keylayout.us");
    EXPECT_EQ(provider.current(), international);
}

TEST_F(KeyboardLayoutServiceTest, AliasGroupsAreTriedInOrderAndTheFirstThatAppliesDecides)
{
    addLayout("Dvorak", "com.apple.keylayout.Dvorak");
    const int us = addLayout("U.S.", "com.apple.keylayout.US");
    const int ukrainian = addLayout("Українська — PC", "com.apple.keylayout.Ukrainian-PC");

    service.switchLayout("Latin");
    EXPECT_EQ(provider.current(), us);
    service.switchLayout("UA");
    EXPECT_EQ(provider.current(), ukrainian);
    // "Crux" contains "ru": only the Russian group is asked, so the Latin source is never offered.
    EXPECT_EQ(errorOf([&] { service.switchLayout("Crux US"); }), "Keyboard layout not found: Crux US");

    const int russian = addLayout("Русская", "com.apple.keylayout.Russian");
    service.switchLayout("Crux");
    EXPECT_EQ(provider.current(), russian);
}

// --- Switching.

TEST_F(KeyboardLayoutServiceTest, SwitchAsksThreeTimesWithoutDelay)
{
    addLayout("ABC", "com.apple.keylayout.ABC");
    const int russian = addLayout(russianPc, "com.apple.keylayout.RussianWin");

    provider.failSelections(2, -50);
    service.switchLayout("Russian");
    EXPECT_EQ(provider.selectCalls(), 3);
    EXPECT_EQ(provider.current(), russian);

    provider.setCurrent(0);
    provider.failSelections(3, -25);
    EXPECT_EQ(errorOf([&] { service.switchLayout("Russian"); }),
              "Could not switch keyboard layout to Russian: -25");
    EXPECT_EQ(provider.selectCalls(), 6);
    EXPECT_EQ(provider.current(), 0);
}

TEST_F(KeyboardLayoutServiceTest, SwitchToAnUnknownLayoutTouchesNothing)
{
    addLayout("ABC", "com.apple.keylayout.ABC");
    EXPECT_EQ(errorOf([&] { service.switchLayout("Greek"); }), "Keyboard layout not found: Greek");
    provider.setCurrent(0);
    EXPECT_EQ(errorOf([&] { service.switchLayoutIfNeeded("Greek"); }), "Keyboard layout not found: Greek");
    EXPECT_EQ(provider.selectCalls(), 0);

    provider.removeAll();
    EXPECT_EQ(errorOf([&] { service.switchLayout("ABC"); }), "Keyboard layout not found: ABC");
}

TEST_F(KeyboardLayoutServiceTest, SwitchIfNeededOnlySwitchesAwayFromAnotherSource)
{
    const int abc = addLayout("ABC", "com.apple.keylayout.ABC");
    const int russian = addLayout(russianPc, "com.apple.keylayout.RussianWin");

    provider.setCurrent(russian);
    service.switchLayoutIfNeeded("Russian");
    EXPECT_EQ(provider.selectCalls(), 0);

    service.switchLayoutIfNeeded("ABC");
    EXPECT_EQ(provider.selectCalls(), 1);
    EXPECT_EQ(provider.current(), abc);

    provider.setCurrent(std::nullopt);
    service.switchLayoutIfNeeded("ABC");
    EXPECT_EQ(provider.selectCalls(), 2);
    EXPECT_EQ(provider.current(), abc);
}

// --- Settings page.

TEST_F(KeyboardLayoutServiceTest, SuggestionPicksFirstLatinAndFirstOtherSourceOrTheDefaults)
{
    EXPECT_EQ(service.suggestion(),
              (KeyboardLayoutSuggestion{"ABC", russianPc, {"ABC", "U.S.", russianPc, "Russian"}}));
    EXPECT_EQ(service.currentLayoutName(), std::nullopt);

    const int greek = addLayout("Greek", "com.apple.keylayout.Greek");
    addLayout("ABC", "com.apple.keylayout.ABC");
    addLayout("Ukrainian", "com.apple.keylayout.Ukrainian");
    EXPECT_EQ(service.suggestion(),
              (KeyboardLayoutSuggestion{"ABC", "Greek", {"Greek", "ABC", "Ukrainian"}}));

    provider.setCurrent(greek);
    EXPECT_EQ(service.currentLayoutName(), "Greek");
    provider.source(greek).name.reset();
    EXPECT_EQ(service.currentLayoutName(), std::nullopt);
}

} // namespace
