#include "hotkeys/QtKeyEventTranslator.h"

#include "QStringPrinting.h"
#include "hotkeys/HotkeyFormatter.h"

#include <gtest/gtest.h>

namespace {

// XKB key codes of a few physical keys (evdev code + 8).
constexpr quint32 xkbA = 38;
constexpr quint32 xkbGrave = 49;
constexpr quint32 xkbKeypad1 = 87;
constexpr quint32 xkbIsoSection = 94;

// Qt names non-Latin keys by the upper-case code point they type.
constexpr auto cyrillicEf = static_cast<Qt::Key>(0x0424);
constexpr auto cyrillicIo = static_cast<Qt::Key>(0x0401);

std::optional<QString> capture(QtKeyEventTranslator::Source source, Qt::Key key,
                               Qt::KeyboardModifiers modifiers, quint32 nativeCode = 0,
                               const QString& text = {})
{
    return HotkeyFormatter::capture(QtKeyEventTranslator(source).translate(key, modifiers, nativeCode, text));
}

using Source = QtKeyEventTranslator::Source;

} // namespace

TEST(QtKeyEventTranslatorTest, PhysicalKeyDecidesWhateverTheLayoutTypes)
{
    // A Russian layout: the keys still record as the letters their positions carry on macOS.
    EXPECT_EQ(capture(Source::Xkb, cyrillicEf, Qt::MetaModifier | Qt::ShiftModifier, xkbA),
              "Command+Shift+A");
    EXPECT_EQ(capture(Source::Xkb, cyrillicIo, Qt::ControlModifier, xkbGrave), "Control+Backquote");
    // A keypad digit has no name of its own and records as the digit it types.
    EXPECT_EQ(capture(Source::Xkb, Qt::Key_1, Qt::AltModifier | Qt::KeypadModifier, xkbKeypad1), "Alt+1");
    EXPECT_EQ(capture(Source::Xkb, Qt::Key_Less, Qt::AltModifier, xkbIsoSection), std::nullopt);
    EXPECT_EQ(capture(Source::Xkb, Qt::Key_Z, Qt::AltModifier, xkbIsoSection), "Alt+Z");
}

TEST(QtKeyEventTranslatorTest, FallsBackToQtKeyWithoutANativeCode)
{
    EXPECT_EQ(capture(Source::Xkb, Qt::Key_F5, Qt::AltModifier), "Alt+F5");
    EXPECT_EQ(capture(Source::Generic, Qt::Key_Q, Qt::AltModifier, xkbA), "Alt+Q");
    EXPECT_EQ(capture(Source::Generic, cyrillicEf, Qt::AltModifier), std::nullopt);
}

TEST(QtKeyEventTranslatorTest, ShiftedSymbolsMapToTheKeyThatTypesThem)
{
    const std::pair<Qt::Key, const char*> cases[] = {
        {Qt::Key_Exclam, "1"},
        {Qt::Key_AsciiCircum, "6"},
        {Qt::Key_ParenRight, "0"},
        {Qt::Key_Underscore, "Minus"},
        {Qt::Key_Bar, "Backslash"},
        {Qt::Key_QuoteDbl, "Quote"},
        {Qt::Key_AsciiTilde, "Backquote"},
    };
    for (const auto& [key, name] : cases) {
        EXPECT_EQ(capture(Source::Generic, key, Qt::ShiftModifier | Qt::ControlModifier),
                  "Control+Shift+" + QString::fromLatin1(name))
            << name;
    }
}

TEST(QtKeyEventTranslatorTest, RecorderKeysKeepTheirCodesAndCharactersComeFromTheKey)
{
    const QtKeyEventTranslator translator(Source::Generic);
    EXPECT_EQ(translator.translate(Qt::Key_Escape, {}, 0, {}).keyCode, MacKeyCode::escape);
    EXPECT_EQ(translator.translate(Qt::Key_Backspace, {}, 0, {}).keyCode, MacKeyCode::deleteBackward);
    EXPECT_EQ(translator.translate(Qt::Key_Delete, {}, 0, {}).keyCode, MacKeyCode::deleteForward);
    EXPECT_EQ(translator.translate(Qt::Key_Backtab, Qt::ShiftModifier, 0, {}).keyCode, MacKeyCode::tab);
    EXPECT_EQ(translator.translate(Qt::Key_unknown, {}, 0, {}).keyCode, MacKeyCode::none);
    // Not from the control character that Control makes of the text.
    EXPECT_EQ(translator.translate(Qt::Key_A, Qt::ControlModifier, 0, "\x01").charactersIgnoringModifiers,
              "a");
    EXPECT_EQ(translator.translate(Qt::Key_unknown, Qt::AltModifier, 0, "x").charactersIgnoringModifiers,
              "x");
    EXPECT_EQ(
        translator.translate(Qt::Key_unknown, Qt::ControlModifier, 0, "\x01").charactersIgnoringModifiers,
        std::nullopt);
}

TEST(QtKeyEventTranslatorTest, CommandIsMetaExceptOnMac)
{
    EXPECT_EQ(capture(Source::Generic, Qt::Key_K, Qt::MetaModifier | Qt::ControlModifier | Qt::AltModifier),
              "Command+Control+Alt+K");
    EXPECT_EQ(capture(Source::Xkb, Qt::Key_K, Qt::ControlModifier), "Control+K");
    // Qt on macOS reports Command as Control and Control as Meta; its native key is the macOS code.
    EXPECT_EQ(capture(Source::Mac, cyrillicIo, Qt::ControlModifier, 50), "Command+Backquote");
    EXPECT_EQ(capture(Source::Mac, Qt::Key_K, Qt::MetaModifier | Qt::ShiftModifier, 40), "Control+Shift+K");
}
