#include "text/KeyboardLayoutService.h"

#include "FakeInputSourceProvider.h"
#include "core/MivoraSettings.h"
#include "text/KeyboardLayoutError.h"

#include <gtest/gtest.h>
#include <ostream>

void PrintTo(const KeyboardLayoutFixResult& result, std::ostream* os)
{
    *os << '{' << result.text.toStdString() << ", " << (result.convertedToLatin ? "toLatin" : "toNative")
        << ", " << result.targetLayoutName.value_or(QStringLiteral("<none>")).toStdString() << '}';
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
        return QStringLiteral("<no error>");
    }

    FakeInputSourceProvider provider;
    KeyboardLayoutService service{provider};
    MivoraSettings settings;
};

// --- Fixed tables: no platform sources at all.

TEST_F(KeyboardLayoutServiceTest, FixedTablesDecideOnceForTheWholeText)
{
    EXPECT_EQ(fix(QStringLiteral("ghbdtn")), toNative(QStringLiteral("привет")));
    EXPECT_EQ(fix(QStringLiteral("Ghbdtn")), toNative(QStringLiteral("Привет")));
    EXPECT_EQ(fix(QStringLiteral("руддщ")), toLatin(QStringLiteral("hello")));
    // The comma is a key of both maps; on the way back it is the shifted slash key.
    EXPECT_EQ(fix(QStringLiteral("Руддщ, цщкдв")), toLatin(QStringLiteral("Hello? world")));
    // 5 Latin hits against 3: the Cyrillic word is left as it is, not converted per word.
    EXPECT_EQ(fix(QStringLiteral("hello мир")), toNative(QStringLiteral("руддщ мир")));
    // Ties go Latin-to-native.
    EXPECT_EQ(fix(QStringLiteral("ab ши")), toNative(QStringLiteral("фи ши")));
    EXPECT_EQ(fix(QStringLiteral(",")), toNative(QStringLiteral("б")));
    EXPECT_EQ(fix(QString()), toNative(QString()));
    EXPECT_EQ(fix(QStringLiteral(" 2024\t\n")), toNative(QStringLiteral(" 2024\t\n")));
    EXPECT_EQ(fix(QStringLiteral("~`\"{}<>?")), toNative(QStringLiteral("ЁёЭХЪБЮ,")));
}

TEST_F(KeyboardLayoutServiceTest, FixedTablesTakeNamesFromSettingsAndOnlyEmptyMeansDefault)
{
    settings.layoutLatinSource = QStringLiteral(" ");
    settings.layoutNativeSource = QString();
    EXPECT_EQ(fix(QStringLiteral("руддщ")), toLatin(QStringLiteral("hello"), QStringLiteral(" ")));
    EXPECT_EQ(fix(QStringLiteral("ghbdtn")), toNative(QStringLiteral("привет"), russianPc));
}

TEST_F(KeyboardLayoutServiceTest, UkrainianNativeNameSelectsTheUkrainianTable)
{
    settings.layoutNativeSource = QStringLiteral("Украинская");
    const QString ukrainian = QStringLiteral("Украинская");
    EXPECT_EQ(fix(QStringLiteral("Ckfdf Erhf]ys")), toNative(QStringLiteral("Слава Україні"), ukrainian));
    // The key left of 1 gives an apostrophe, and with Shift a slash.
    EXPECT_EQ(fix(QStringLiteral("`~")), toNative(QStringLiteral("'/"), ukrainian));

    settings.layoutNativeSource = QStringLiteral("ukrainian");
    EXPECT_EQ(fix(QStringLiteral("s")).text, QStringLiteral("і"));
}

// --- Characters are extended grapheme clusters compared under canonical equivalence.

TEST_F(KeyboardLayoutServiceTest, DecomposedLettersConvertLikeComposedOnes)
{
    // "йцу" with the first letter spelled и + combining breve.
    EXPECT_EQ(fix(QStringLiteral("\u0438\u0306\u0446\u0443")), toLatin(QStringLiteral("qwe")));
    EXPECT_EQ(fix(QStringLiteral("\u0415\u0308\u0436")), toLatin(QStringLiteral("~;")));
}

TEST_F(KeyboardLayoutServiceTest, ClustersThatAreNoKeysPassThroughWhole)
{
    // "n" with a combining accent is its own character, not "n" followed by a mark.
    EXPECT_EQ(fix(QStringLiteral("ghbdtn\u0301")),
              toNative(QStringLiteral("приве") + QStringLiteral("n\u0301")));

    const QString family = QStringLiteral("👨\u200D👩\u200D👧");
    const QString flag = QStringLiteral("🇷🇺");
    EXPECT_EQ(fix(family + QStringLiteral(" ghbdtn ") + flag),
              toNative(family + QStringLiteral(" привет ") + flag));
    EXPECT_EQ(fix(family + flag), toNative(family + flag));
    EXPECT_EQ(fix(QStringLiteral("руддщ") + family), toLatin(QStringLiteral("hello") + family));
}

// --- Maps from the platform's layouts.

class PlatformMapsTest : public KeyboardLayoutServiceTest {
protected:
    void SetUp() override
    {
        latin = provider.addSource(FakeInputSourceProvider::layout(
            QStringLiteral("U.S."), QStringLiteral("com.apple.keylayout.US"), u"abc1 ", u"ABC! "));
        native = provider.addSource(FakeInputSourceProvider::layout(
            russianPc, QStringLiteral("com.apple.keylayout.RussianWin"), u"жэщ1 ", u"ЖЭЩ! "));
    }

    int latin = 0;
    int native = 0;
};

TEST_F(PlatformMapsTest, ConvertsThroughTheRealLayoutsAndNamesTheirSources)
{
    EXPECT_EQ(fix(QStringLiteral("abc 1!")), toNative(QStringLiteral("жэщ 1!"), russianPc));
    EXPECT_EQ(fix(QStringLiteral("ЖЭЩ")), toLatin(QStringLiteral("ABC"), QStringLiteral("U.S.")));
}

TEST_F(PlatformMapsTest, MapsAreBuiltOncePerPairOfIdentifiers)
{
    fix(QStringLiteral("abc"));
    const int afterFirstBuild = provider.translateCalls();
    EXPECT_GT(afterFirstBuild, 0);
    EXPECT_EQ(fix(QStringLiteral("ЖЭЩ")).text, QStringLiteral("ABC"));
    EXPECT_EQ(provider.translateCalls(), afterFirstBuild);

    provider.source(native).id = QStringLiteral("com.apple.keylayout.Russian");
    provider.source(native).setKey(0, false, QStringLiteral("ф"));
    EXPECT_EQ(fix(QStringLiteral("abc")).text, QStringLiteral("фэщ"));
    EXPECT_GT(provider.translateCalls(), afterFirstBuild);
}

TEST_F(PlatformMapsTest, FailedBuildFallsToTablesAndKeepsTheCachedPair)
{
    fix(QStringLiteral("abc"));
    FakeInputSourceProvider::Source noData = FakeInputSourceProvider::layout(
        QStringLiteral("Ukrainian"), QStringLiteral("com.apple.keylayout.Ukrainian"), u"ї");
    noData.hasKeyLayoutData = false;
    provider.addSource(noData);
    settings.layoutNativeSource = QStringLiteral("Ukrainian");
    EXPECT_EQ(fix(QStringLiteral("abcs")), toNative(QStringLiteral("фисі"), QStringLiteral("Ukrainian")));

    settings.layoutNativeSource = russianPc;
    const int beforeReturn = provider.translateCalls();
    EXPECT_EQ(fix(QStringLiteral("abc")).text, QStringLiteral("жэщ"));
    EXPECT_EQ(provider.translateCalls(), beforeReturn);
}

TEST_F(PlatformMapsTest, UnchangedPlatformResultFallsToTablesWithTheSettingsNames)
{
    settings.layoutNativeSource = QStringLiteral("RussianWin");
    EXPECT_EQ(fix(QStringLiteral("ghjuhfvvf")),
              toNative(QStringLiteral("программа"), QStringLiteral("RussianWin")));
    EXPECT_EQ(fix(QString()), toNative(QString(), QStringLiteral("RussianWin")));
}

TEST_F(PlatformMapsTest, SkipsKeysWithoutOneCharacterOnBothSidesAndLaterKeysWin)
{
    auto& latinKeys = provider.source(latin);
    auto& nativeKeys = provider.source(native);
    latinKeys.setKey(10, false, QStringLiteral("x"));
    nativeKeys.setKey(10, false, QString()); // a dead key
    latinKeys.setKey(11, false, QStringLiteral("y"));
    nativeKeys.setKey(11, false, QStringLiteral("ый"));
    latinKeys.setKey(12, false, QStringLiteral("z"));
    nativeKeys.setKey(12, false, QStringLiteral("😀"));
    latinKeys.setKey(13, false, QStringLiteral("q"));
    nativeKeys.setKey(13, false, QStringLiteral("q"));
    latinKeys.setKey(127, false, QStringLiteral("a"));
    nativeKeys.setKey(127, false, QStringLiteral("ё"));

    EXPECT_EQ(fix(QStringLiteral("xyzqa")), toNative(QStringLiteral("xyzqё"), russianPc));
}

TEST_F(KeyboardLayoutServiceTest, SameSourceForBothRolesFallsToTables)
{
    // "Russian" contains "us", so it is also the first Latin source.
    provider.addSource(FakeInputSourceProvider::layout(
        QStringLiteral("Russian"), QStringLiteral("com.apple.keylayout.Russian"), u"йцу", u"ЙЦУ"));
    EXPECT_EQ(fix(QStringLiteral("ghbdtn")), toNative(QStringLiteral("привет"), russianPc));
    EXPECT_GT(provider.translateCalls(), 0);
}

TEST_F(KeyboardLayoutServiceTest, ListsOnlyNamedIdentifiedKeyboardSources)
{
    addLayout(QStringLiteral("ABC"), QStringLiteral("com.apple.keylayout.ABC"));
    auto noName = FakeInputSourceProvider::layout(QString(), QStringLiteral("x.noname"), {});
    noName.name.reset();
    provider.addSource(noName);
    auto noId = FakeInputSourceProvider::layout(QStringLiteral("No id"), QString(), {});
    noId.id.reset();
    provider.addSource(noId);
    auto noType = FakeInputSourceProvider::layout(QStringLiteral("No type"), QStringLiteral("x.notype"), {});
    noType.type.reset();
    provider.addSource(noType);
    auto palette = FakeInputSourceProvider::layout(QStringLiteral("Emoji"), QStringLiteral("x.palette"), {});
    palette.type = PlatformInputSource::Type::other;
    provider.addSource(palette);
    auto inputMode =
        FakeInputSourceProvider::layout(QStringLiteral("Pinyin"), QStringLiteral("x.pinyin"), {});
    inputMode.type = PlatformInputSource::Type::keyboardInputMode;
    provider.addSource(inputMode);
    addLayout(QStringLiteral("ABC"), QStringLiteral("com.apple.keylayout.ABC2"));

    EXPECT_EQ(service.suggestion().availableNames,
              (QStringList{QStringLiteral("ABC"), QStringLiteral("Pinyin"), QStringLiteral("ABC")}));
}

// --- Finding a source by a loose name, seen through switchLayout.

TEST_F(KeyboardLayoutServiceTest, FindsByNameOrIdentifierInListOrder)
{
    const int abc = addLayout(QStringLiteral("ABC"), QStringLiteral("com.apple.keylayout.ABC"));
    const int russian = addLayout(russianPc, QStringLiteral("com.apple.keylayout.RussianWin"));
    const int international = addLayout(QStringLiteral("U.S. International — PC"),
                                        QStringLiteral("com.apple.keylayout.USInternational-PC"));
    addLayout(QStringLiteral("U.S."), QStringLiteral("com.apple.keylayout.US"));

    service.switchLayout(QStringLiteral("Russian"));
    EXPECT_EQ(provider.current(), russian);
    service.switchLayout(QStringLiteral("  abc\n"));
    EXPECT_EQ(provider.current(), abc);
    // An earlier source that merely contains the name wins over a later exact match.
    service.switchLayout(QStringLiteral("U.S."));
    EXPECT_EQ(provider.current(), international);
    service.switchLayout(QStringLiteral("com.apple.keylayout.us"));
    EXPECT_EQ(provider.current(), international);
}

TEST_F(KeyboardLayoutServiceTest, AliasGroupsAreTriedInOrderAndTheFirstThatAppliesDecides)
{
    addLayout(QStringLiteral("Dvorak"), QStringLiteral("com.apple.keylayout.Dvorak"));
    const int us = addLayout(QStringLiteral("U.S."), QStringLiteral("com.apple.keylayout.US"));
    const int ukrainian =
        addLayout(QStringLiteral("Українська — PC"), QStringLiteral("com.apple.keylayout.Ukrainian-PC"));

    service.switchLayout(QStringLiteral("Latin"));
    EXPECT_EQ(provider.current(), us);
    service.switchLayout(QStringLiteral("UA"));
    EXPECT_EQ(provider.current(), ukrainian);
    // "Crux" contains "ru": only the Russian group is asked, so the Latin source is never offered.
    EXPECT_EQ(errorOf([&] { service.switchLayout(QStringLiteral("Crux US")); }),
              QStringLiteral("Keyboard layout not found: Crux US"));

    const int russian = addLayout(QStringLiteral("Русская"), QStringLiteral("com.apple.keylayout.Russian"));
    service.switchLayout(QStringLiteral("Crux"));
    EXPECT_EQ(provider.current(), russian);
}

// --- Switching.

TEST_F(KeyboardLayoutServiceTest, SwitchAsksThreeTimesWithoutDelay)
{
    addLayout(QStringLiteral("ABC"), QStringLiteral("com.apple.keylayout.ABC"));
    const int russian = addLayout(russianPc, QStringLiteral("com.apple.keylayout.RussianWin"));

    provider.failSelections(2, -50);
    service.switchLayout(QStringLiteral("Russian"));
    EXPECT_EQ(provider.selectCalls(), 3);
    EXPECT_EQ(provider.current(), russian);

    provider.setCurrent(0);
    provider.failSelections(3, -25);
    try {
        service.switchLayout(QStringLiteral("Russian"));
        ADD_FAILURE() << "no error";
    } catch (const KeyboardLayoutError& error) {
        EXPECT_EQ(error.kind(), KeyboardLayoutError::Kind::switchFailed);
        EXPECT_EQ(error.status(), -25);
        EXPECT_EQ(error.errorDescription(),
                  QStringLiteral("Could not switch keyboard layout to Russian: -25"));
    }
    EXPECT_EQ(provider.selectCalls(), 6);
    EXPECT_EQ(provider.current(), 0);
}

TEST_F(KeyboardLayoutServiceTest, SwitchToAnUnknownLayoutTouchesNothing)
{
    addLayout(QStringLiteral("ABC"), QStringLiteral("com.apple.keylayout.ABC"));
    EXPECT_EQ(errorOf([&] { service.switchLayout(QStringLiteral("Greek")); }),
              QStringLiteral("Keyboard layout not found: Greek"));
    provider.setCurrent(0);
    EXPECT_EQ(errorOf([&] { service.switchLayoutIfNeeded(QStringLiteral("Greek")); }),
              QStringLiteral("Keyboard layout not found: Greek"));
    EXPECT_EQ(provider.selectCalls(), 0);

    provider.removeAll();
    EXPECT_EQ(errorOf([&] { service.switchLayout(QStringLiteral("ABC")); }),
              QStringLiteral("Keyboard layout not found: ABC"));
}

TEST_F(KeyboardLayoutServiceTest, SwitchIfNeededOnlySwitchesAwayFromAnotherSource)
{
    const int abc = addLayout(QStringLiteral("ABC"), QStringLiteral("com.apple.keylayout.ABC"));
    const int russian = addLayout(russianPc, QStringLiteral("com.apple.keylayout.RussianWin"));

    provider.setCurrent(russian);
    service.switchLayoutIfNeeded(QStringLiteral("Russian"));
    EXPECT_EQ(provider.selectCalls(), 0);

    service.switchLayoutIfNeeded(QStringLiteral("ABC"));
    EXPECT_EQ(provider.selectCalls(), 1);
    EXPECT_EQ(provider.current(), abc);

    provider.setCurrent(std::nullopt);
    service.switchLayoutIfNeeded(QStringLiteral("ABC"));
    EXPECT_EQ(provider.selectCalls(), 2);
    EXPECT_EQ(provider.current(), abc);
}

// --- Settings page.

TEST_F(KeyboardLayoutServiceTest, SuggestionFallsBackToDefaultsWithoutSources)
{
    EXPECT_EQ(service.suggestion(), (KeyboardLayoutSuggestion{QStringLiteral("ABC"),
                                                              russianPc,
                                                              {QStringLiteral("ABC"), QStringLiteral("U.S."),
                                                               russianPc, QStringLiteral("Russian")}}));
    EXPECT_EQ(service.currentLayoutName(), std::nullopt);
}

TEST_F(KeyboardLayoutServiceTest, SuggestionPicksFirstLatinAndFirstOtherSource)
{
    const int greek = addLayout(QStringLiteral("Greek"), QStringLiteral("com.apple.keylayout.Greek"));
    addLayout(QStringLiteral("ABC"), QStringLiteral("com.apple.keylayout.ABC"));
    addLayout(QStringLiteral("Ukrainian"), QStringLiteral("com.apple.keylayout.Ukrainian"));
    EXPECT_EQ(service.suggestion(), (KeyboardLayoutSuggestion{QStringLiteral("ABC"),
                                                              QStringLiteral("Greek"),
                                                              {QStringLiteral("Greek"), QStringLiteral("ABC"),
                                                               QStringLiteral("Ukrainian")}}));

    provider.setCurrent(greek);
    EXPECT_EQ(service.currentLayoutName(), QStringLiteral("Greek"));
    provider.source(greek).name.reset();
    EXPECT_EQ(service.currentLayoutName(), std::nullopt);
}

} // namespace
