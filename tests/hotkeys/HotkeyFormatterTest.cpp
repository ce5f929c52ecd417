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

TEST(HotkeyFormatterTest, DisplaysModifierAndKeySymbolsWhateverTheSpelling)
{
    EXPECT_EQ(display("Control+Alt+Shift+Left"), "⌃ ⌥ ⇧ ←");
    EXPECT_EQ(display("Alt+1"), "⌥ 1");
    EXPECT_EQ(display("Cmd+Option+Ctrl+⇧+Return"), "⌘ ⌥ ⌃ ⇧ ↩");
    EXPECT_EQ(display("⌘+⌃+⌥+Right"), "⌘ ⌃ ⌥ →");
    EXPECT_EQ(display("Command+Up+Down"), "⌘ ↑ ↓");
    EXPECT_EQ(display("Period+Backslash+BracketLeft+Backquote"), ". \\ [ `");
    EXPECT_EQ(display("Alt+SPACE"), "⌥ Space");
}

TEST(HotkeyFormatterTest, ShowsWhatItDoesNotKnowAsItStandsAndUnsetOnesAsNotAssigned)
{
    // Only "Option" is rewritten for display, and only exact names have symbols.
    EXPECT_EQ(display("option+RETURN"), "option RETURN");
    EXPECT_EQ(display("alt+left"), "alt left");
    // Pieces are not trimmed here, unlike in the parser.
    EXPECT_EQ(display("Alt + 1"), "Alt   1");
    EXPECT_EQ(display("Alt++"), "⌥");
    EXPECT_EQ(display("+"), QString());
    EXPECT_EQ(display("Hyper+Ж"), "Hyper Ж");
    EXPECT_EQ(display(""), "Not assigned");
    EXPECT_EQ(display("not ASSIGNED"), "Not assigned");
    EXPECT_EQ(display(" Not assigned"), " Not assigned");
}

TEST(HotkeyFormatterTest, CaptureNeedsAModifierAndWritesThemInCanonicalOrder)
{
    const HotkeyModifiers all =
        HotkeyModifier::Shift | HotkeyModifier::Option | HotkeyModifier::Control | HotkeyModifier::Command;
    EXPECT_EQ(capture(0, all), "Command+Control+Alt+Shift+A");
    EXPECT_EQ(capture(123, HotkeyModifier::Shift | HotkeyModifier::Control), "Control+Shift+Left");
    EXPECT_EQ(capture(36, alt), "Alt+Return");
    EXPECT_FALSE(capture(0, {}, "a"));
    EXPECT_FALSE(capture(122, {}));
    // Bits outside the four modifiers (Caps Lock, Fn) do not count as one.
    EXPECT_FALSE(capture(0, HotkeyModifiers::fromInt(0x10000 | 0x800000)));
}

TEST(HotkeyFormatterTest, KeyCodeTableWinsOverTheCharactersTyped)
{
    EXPECT_EQ(capture(50, alt, "ё"), "Alt+Backquote");
    EXPECT_EQ(capture(0, alt, "ф"), "Alt+A");
    EXPECT_EQ(capture(12, alt, "a"), "Alt+Q");
}

TEST(HotkeyFormatterTest, UnnamedKeysAreCapturedOnlyIfTheyTypeOneLetterOrDigit)
{
    EXPECT_EQ(capture(10, alt, "x"), "Alt+X");
    EXPECT_EQ(capture(83, alt, "1"), "Alt+1");
    EXPECT_EQ(capture(10, alt, "ı"), "Alt+I");
    for (const char* characters : {"§", "<", "xy", "ß", "", "\t", "\x1b"}) {
        EXPECT_FALSE(capture(10, alt, QString::fromUtf8(characters))) << characters;
    }
    EXPECT_FALSE(capture(10, alt));
    // Neither Tab nor Escape has a capture name, whatever they type.
    EXPECT_FALSE(capture(48, alt, "\t"));
    EXPECT_FALSE(capture(53, alt, "\x1b"));
}

TEST(HotkeyFormatterTest, EveryCapturedTextParsesBackToItsKey)
{
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
