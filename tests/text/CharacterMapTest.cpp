#include "text/CharacterMap.h"

#include <QStringList>
#include <gtest/gtest.h>

namespace {

QStringList characters(const QString& text)
{
    QStringList result;
    forEachCharacter(text, [&result](QStringView c) { result.append(c.toString()); });
    return result;
}

} // namespace

TEST(CharacterMapTest, KeysMatchUnderCanonicalEquivalence)
{
    CharacterMap map;
    map.insert(u"й", u"q");
    map.insert(u"e\u0301", u"1");
    map.insert(u"\u00C5", u"2");

    EXPECT_EQ(*map.find(u"\u0438\u0306"), u"q");
    EXPECT_EQ(*map.find(u"\u00E9"), u"1");
    // ANGSTROM SIGN is a singleton: it never survives composition, so it must reach the composed key.
    EXPECT_EQ(*map.find(u"\u212B"), u"2");
    EXPECT_EQ(*map.find(u"A\u030A"), u"2");
    EXPECT_FALSE(map.contains(u"и"));
    EXPECT_FALSE(map.contains(u"e"));

    // A later equivalent key replaces the earlier value.
    map.insert(u"\u0438\u0306", u"first");
    EXPECT_EQ(map.size(), 3);
    EXPECT_EQ(*map.find(u"й"), u"first");
}

TEST(CharacterMapTest, MultiUnitKeysMatchWhetherOrNotTheyNeedComposing)
{
    CharacterMap map;
    map.insert(u"👍🏽", u"thumb");
    map.insert(u"1\uFE0F\u20E3", u"keycap");
    map.insert(u"\uD558\u11AB", u"hangul");
    EXPECT_EQ(*map.find(u"👍🏽"), u"thumb");
    EXPECT_EQ(*map.find(u"1\uFE0F\u20E3"), u"keycap");
    EXPECT_FALSE(map.contains(u"👍"));
    // A Hangul syllable and a trailing jamo compose into one syllable, as do the three bare jamo.
    EXPECT_EQ(*map.find(u"\uD55C"), u"hangul");
    EXPECT_EQ(*map.find(u"\u1112\u1161\u11AB"), u"hangul");
    EXPECT_FALSE(map.contains(u"\uD558"));
}

TEST(CharacterMapTest, WalksExtendedGraphemeClusters)
{
    const QString family = QStringLiteral("👨\u200D👩\u200D👧");
    const QString flag = QStringLiteral("🇷🇺");
    EXPECT_EQ(
        characters(QStringLiteral("a") + family + flag + QStringLiteral("и\u0306\r\n")),
        (QStringList{QStringLiteral("a"), family, flag, QStringLiteral("и\u0306"), QStringLiteral("\r\n")}));
    EXPECT_TRUE(characters(QString()).isEmpty());
}
