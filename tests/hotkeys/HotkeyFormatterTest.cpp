#include "hotkeys/HotkeyFormatter.h"

#include "QStringPrinting.h"
#include "hotkeys/ParsedHotkey.h"

#include <gtest/gtest.h>

namespace {

QString display(const char* text)
{
    return HotkeyFormatter::display(QString::fromUtf8(text));
}

std::optional<QString> capture(quint16 keyCode, HotkeyModifiers modifiers,
                               std::optional<QString> characters = std::nullopt)
{
    return HotkeyFormatter::capture(HotkeyKeyEvent{keyCode, modifiers, std::move(characters)});
}

const HotkeyModifiers alt(HotkeyModifier::Option);

} // namespace

TEST(HotkeyFormatterTest, DisplaysModifierSymbolsWhateverTheSpelling)
{
    EXPECT_EQ(display("Control+Alt+Shift+Left"), QStringLiteral("⌃ ⌥ ⇧ ←"));
    EXPECT_EQ(display("Alt+1"), QStringLiteral("⌥ 1"));
    EXPECT_EQ(display("Cmd+Option+Ctrl+⇧+Return"), QStringLiteral("⌘ ⌥ ⌃ ⇧ ↩"));
    EXPECT_EQ(display("⌘+⌃+⌥+Right"), QStringLiteral("⌘ ⌃ ⌥ →"));
    EXPECT_EQ(display("Command+Up+Down"), QStringLiteral("⌘ ↑ ↓"));
}

TEST(HotkeyFormatterTest, DisplaysKeyNamesAsTheirSymbols)
{
    EXPECT_EQ(display("Period+Comma+Slash+Backslash+Semicolon+Quote+BracketLeft+BracketRight+Minus+Equal+"
                      "Backquote"),
              QStringLiteral(". , / \\ ; ' [ ] - = `"));
    EXPECT_EQ(display("Alt+Space"), QStringLiteral("⌥ Space"));
    EXPECT_EQ(display("Alt+SPACE"), QStringLiteral("⌥ Space"));
}

TEST(HotkeyFormatterTest, ShowsWhatItDoesNotKnowAsItStands)
{
    // Only "Option" is rewritten for display, and only exact names have symbols.
    EXPECT_EQ(display("option+RETURN"), QStringLiteral("option RETURN"));
    EXPECT_EQ(display("alt+left"), QStringLiteral("alt left"));
    // Pieces are not trimmed here, unlike in the parser.
    EXPECT_EQ(display("Alt + 1"), QStringLiteral("Alt   1"));
    EXPECT_EQ(display("Alt++"), QStringLiteral("⌥"));
    EXPECT_EQ(display("+"), QString());
    EXPECT_EQ(display("Hyper+Ж"), QStringLiteral("Hyper Ж"));
}

TEST(HotkeyFormatterTest, DisplaysUnsetHotkeysAsNotAssigned)
{
    EXPECT_EQ(display(""), QStringLiteral("Not assigned"));
    EXPECT_EQ(display("not ASSIGNED"), QStringLiteral("Not assigned"));
    EXPECT_EQ(display(" Not assigned"), QStringLiteral(" Not assigned"));
}

TEST(HotkeyFormatterTest, CaptureWritesModifiersInCanonicalOrder)
{
    const HotkeyModifiers all =
        HotkeyModifier::Shift | HotkeyModifier::Option | HotkeyModifier::Control | HotkeyModifier::Command;
    EXPECT_EQ(capture(0, all), QStringLiteral("Command+Control+Alt+Shift+A"));
    EXPECT_EQ(capture(123, HotkeyModifier::Shift | HotkeyModifier::Control),
              QStringLiteral("Control+Shift+Left"));
    EXPECT_EQ(capture(36, alt), QStringLiteral("Alt+Return"));
}

TEST(HotkeyFormatterTest, CaptureNeedsAModifier)
{
    EXPECT_FALSE(capture(0, {}, QStringLiteral("a")));
    EXPECT_FALSE(capture(122, {}));
    // Bits outside the four modifiers (Caps Lock, Fn) do not count as one.
    EXPECT_FALSE(capture(0, HotkeyModifiers::fromInt(0x10000 | 0x800000)));
}

TEST(HotkeyFormatterTest, KeyCodeTableWinsOverTheCharactersTyped)
{
    EXPECT_EQ(capture(50, alt, QStringLiteral("ё")), QStringLiteral("Alt+Backquote"));
    EXPECT_EQ(capture(0, alt, QStringLiteral("ф")), QStringLiteral("Alt+A"));
    EXPECT_EQ(capture(12, alt, QStringLiteral("a")), QStringLiteral("Alt+Q"));
}

TEST(HotkeyFormatterTest, UnnamedKeysAreCapturedOnlyIfTheyTypeOneLetterOrDigit)
{
    EXPECT_EQ(capture(10, alt, QStringLiteral("x")), QStringLiteral("Alt+X"));
    EXPECT_EQ(capture(83, alt, QStringLiteral("1")), QStringLiteral("Alt+1"));
    EXPECT_EQ(capture(10, alt, QStringLiteral("ı")), QStringLiteral("Alt+I"));
    for (const char* characters : {"§", "<", "xy", "ß", "", "\t", "\x1b"}) {
        EXPECT_FALSE(capture(10, alt, QString::fromUtf8(characters))) << characters;
    }
    EXPECT_FALSE(capture(10, alt));
    // Neither Tab nor Escape has a capture name, whatever they type.
    EXPECT_FALSE(capture(48, alt, QStringLiteral("\t")));
    EXPECT_FALSE(capture(53, alt, QStringLiteral("\x1b")));
}

TEST(HotkeyFormatterTest, EveryCapturedTextParsesBackToItsKey)
{
    EXPECT_EQ(HotkeyFormatter::keyCodeNames().size(), 65);
    for (auto it = HotkeyFormatter::keyCodeNames().cbegin(); it != HotkeyFormatter::keyCodeNames().cend();
         ++it) {
        const auto text = capture(it.key(), HotkeyModifier::Command | HotkeyModifier::Shift);
        ASSERT_TRUE(text) << it.key();
        const auto parsed = ParsedHotkey::parse(*text);
        ASSERT_TRUE(parsed) << text->toStdString();
        EXPECT_EQ(parsed->keyCode, it.key()) << text->toStdString();
        EXPECT_TRUE(parsed->command && parsed->shift && !parsed->option && !parsed->control);
    }
}
