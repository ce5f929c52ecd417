#include "hotkeys/ParsedHotkey.h"

#include "QStringPrinting.h"

#include <gtest/gtest.h>

namespace {

std::optional<QString> signatureOf(const char* text)
{
    const auto hotkey = ParsedHotkey::parse(QString::fromUtf8(text));
    return hotkey ? std::optional(hotkey->canonicalSignature()) : std::nullopt;
}

} // namespace

TEST(ParsedHotkeyTest, EverySpellingOfAChordHasOneSignature)
{
    for (const char* text : {"Control+Alt+Shift+Left", "control+ALT+shift+left", "Ctrl+Option+Shift+LEFT",
                             "shift+option+CTRL+left", "⌃+⌥+⇧+Left", "Control+Control+Alt+Shift+Left"}) {
        EXPECT_EQ(signatureOf(text), "123:1:0:1:1") << text;
    }
    for (const char* text : {"Cmd+K", "command+k", "⌘+K", "COMMAND+k"}) {
        EXPECT_EQ(signatureOf(text), "40:0:1:0:0") << text;
    }
    EXPECT_EQ(signatureOf("Alt+1"), "18:1:0:0:0");
    EXPECT_EQ(signatureOf("Command+Control+Alt+Shift+F1"), "122:1:1:1:1");
    // Modifiers carry the platform's event flag bits.
    EXPECT_EQ(ParsedHotkey::parse("Command+Control+Alt+Shift+A")->modifiers().toInt(),
              0x100000 | 0x40000 | 0x80000 | 0x20000);
    EXPECT_EQ(ParsedHotkey::parse("Ctrl+A")->modifiers(), HotkeyModifiers(HotkeyModifier::Control));
}

TEST(ParsedHotkeyTest, OptionIsReadInAnyCaseThoughOnlyLowerCaseIsRewritten)
{
    for (const char* text : {"Option+Space", "option+space", "OPTION+SPACE", "⌥+Space", "Alt+Space"}) {
        const auto hotkey = ParsedHotkey::parse(QString::fromUtf8(text));
        ASSERT_TRUE(hotkey) << text;
        EXPECT_EQ(*hotkey, (ParsedHotkey{.option = true, .keyCode = 49})) << text;
    }
}

TEST(ParsedHotkeyTest, KeyAliasesAndIrregularCodes)
{
    // Symbols, the aliases that capture never writes, and codes out of keyboard order; the canonical names
    // are checked by the capture round trip in HotkeyFormatterTest.
    const std::pair<const char*, quint16> cases[] = {
        {"Alt+=", 24},     {"Alt+-", 27}, {"Alt+]", 30},   {"Alt+'", 39},      {"Alt+\\", 42},
        {"Alt+`", 50},     {"Alt+/", 44}, {"Alt+Esc", 53}, {"Alt+Escape", 53}, {"Alt+Tab", 48},
        {"Alt+Enter", 36}, {"Alt+5", 23}, {"Alt+6", 22},
    };
    for (const auto& [text, code] : cases) {
        const auto hotkey = ParsedHotkey::parse(QString::fromUtf8(text));
        ASSERT_TRUE(hotkey) << text;
        EXPECT_EQ(hotkey->keyCode, code) << text;
    }
}

TEST(ParsedHotkeyTest, PiecesAreTrimmedAndEmptyOnesDropped)
{
    for (const char* text : {"Alt + 1", " Alt+1 ", "Alt\n+\t1", "++Alt++1++", "Alt+ +1"}) {
        EXPECT_EQ(signatureOf(text), "18:1:0:0:0") << text;
    }
    // A bare key is a valid stored text, though capture never writes one.
    EXPECT_EQ(signatureOf("a"), "0:0:0:0:0");
}

TEST(ParsedHotkeyTest, RejectsWhatIsNoHotkeyAndKnowsNotAssigned)
{
    for (const char* text : {"", "+", " + ", "Alt++", "Alt+", "⌃⌥A", "ControlAlt+A", "Hyper+A", "Alt+Fn+A",
                             "Alt+F13", "Alt+AB", "Alt+Space+A", "A+Alt", "Not assigned"}) {
        EXPECT_FALSE(ParsedHotkey::parse(QString::fromUtf8(text))) << text;
    }
    EXPECT_TRUE(ParsedHotkey::parse(QString::fromUtf8("⌃+⌥+A")));
    // "Not assigned" is told apart in any case, but not with blanks around it.
    EXPECT_TRUE(ParsedHotkey::isNotAssigned("NOT ASSIGNED"));
    EXPECT_FALSE(ParsedHotkey::isNotAssigned(" Not assigned"));
    EXPECT_FALSE(ParsedHotkey::isNotAssigned(QString()));
    EXPECT_TRUE(ParsedHotkey::isNotAssigned(ParsedHotkey::notAssigned()));
}
