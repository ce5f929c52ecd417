#include "hotkeys/QtKeyEventTranslator.h"

#include "hotkeys/ParsedHotkey.h"

#include <QHash>
#include <algorithm>
#include <string_view>

namespace {

// XKB key codes are Linux evdev codes plus 8; both name physical keys, as macOS virtual key codes do.
constexpr quint32 xkbOffset = 8;

const QHash<quint32, quint16>& macKeyCodesByEvdevCode()
{
    static const QHash<quint32, quint16> table{
        {1, 53},    // Escape
        {2, 18},    // 1
        {3, 19},    // 2
        {4, 20},    // 3
        {5, 21},    // 4
        {6, 23},    // 5
        {7, 22},    // 6
        {8, 26},    // 7
        {9, 28},    // 8
        {10, 25},   // 9
        {11, 29},   // 0
        {12, 27},   // Minus
        {13, 24},   // Equal
        {14, 51},   // Backspace
        {15, 48},   // Tab
        {16, 12},   // Q
        {17, 13},   // W
        {18, 14},   // E
        {19, 15},   // R
        {20, 17},   // T
        {21, 16},   // Y
        {22, 32},   // U
        {23, 34},   // I
        {24, 31},   // O
        {25, 35},   // P
        {26, 33},   // BracketLeft
        {27, 30},   // BracketRight
        {28, 36},   // Return
        {29, 59},   // Left Control
        {30, 0},    // A
        {31, 1},    // S
        {32, 2},    // D
        {33, 3},    // F
        {34, 5},    // G
        {35, 4},    // H
        {36, 38},   // J
        {37, 40},   // K
        {38, 37},   // L
        {39, 41},   // Semicolon
        {40, 39},   // Quote
        {41, 50},   // Backquote
        {42, 56},   // Left Shift
        {43, 42},   // Backslash
        {44, 6},    // Z
        {45, 7},    // X
        {46, 8},    // C
        {47, 9},    // V
        {48, 11},   // B
        {49, 45},   // N
        {50, 46},   // M
        {51, 43},   // Comma
        {52, 47},   // Period
        {53, 44},   // Slash
        {54, 60},   // Right Shift
        {55, 67},   // Keypad *
        {56, 58},   // Left Alt
        {57, 49},   // Space
        {58, 57},   // Caps Lock
        {59, 122},  // F1
        {60, 120},  // F2
        {61, 99},   // F3
        {62, 118},  // F4
        {63, 96},   // F5
        {64, 97},   // F6
        {65, 98},   // F7
        {66, 100},  // F8
        {67, 101},  // F9
        {68, 109},  // F10
        {69, 71},   // Num Lock, the keypad's Clear
        {71, 89},   // Keypad 7
        {72, 91},   // Keypad 8
        {73, 92},   // Keypad 9
        {74, 78},   // Keypad -
        {75, 86},   // Keypad 4
        {76, 87},   // Keypad 5
        {77, 88},   // Keypad 6
        {78, 69},   // Keypad +
        {79, 83},   // Keypad 1
        {80, 84},   // Keypad 2
        {81, 85},   // Keypad 3
        {82, 82},   // Keypad 0
        {83, 65},   // Keypad .
        {86, 10},   // the key beside Left Shift on ISO keyboards
        {87, 103},  // F11
        {88, 111},  // F12
        {96, 76},   // Keypad Enter
        {97, 62},   // Right Control
        {98, 75},   // Keypad /
        {100, 61},  // Right Alt
        {102, 115}, // Home
        {103, 126}, // Up
        {104, 116}, // Page Up
        {105, 123}, // Left
        {106, 124}, // Right
        {107, 119}, // End
        {108, 125}, // Down
        {109, 121}, // Page Down
        {110, 114}, // Insert, where macOS keyboards have Help
        {111, 117}, // Delete
        {117, 81},  // Keypad =
        {125, 55},  // Left Super, the Command key
        {126, 54},  // Right Super
        {183, 105}, // F13
        {184, 107}, // F14
        {185, 113}, // F15
        {186, 106}, // F16
        {187, 64},  // F17
        {188, 79},  // F18
        {189, 80},  // F19
        {190, 90},  // F20
    };
    return table;
}

const QHash<int, quint16>& macKeyCodesForSpecialQtKeys()
{
    static const QHash<int, quint16> table{
        {Qt::Key_Escape, MacKeyCode::escape},
        {Qt::Key_Tab, MacKeyCode::tab},
        // Qt reports Shift+Tab as its own key.
        {Qt::Key_Backtab, MacKeyCode::tab},
        {Qt::Key_Backspace, MacKeyCode::deleteBackward},
        {Qt::Key_Return, MacKeyCode::returnKey},
        {Qt::Key_Enter, MacKeyCode::keypadEnter},
        {Qt::Key_Space, MacKeyCode::space},
        {Qt::Key_Insert, 114},
        {Qt::Key_Delete, MacKeyCode::deleteForward},
        {Qt::Key_Home, 115},
        {Qt::Key_End, 119},
        {Qt::Key_PageUp, 116},
        {Qt::Key_PageDown, 121},
        {Qt::Key_Left, 123},
        {Qt::Key_Right, 124},
        {Qt::Key_Down, 125},
        {Qt::Key_Up, 126},
        {Qt::Key_F13, 105},
        {Qt::Key_F14, 107},
        {Qt::Key_F15, 113},
        {Qt::Key_F16, 106},
        {Qt::Key_F17, 64},
        {Qt::Key_F18, 79},
        {Qt::Key_F19, 80},
        {Qt::Key_F20, 90},
    };
    return table;
}

// Qt names the shifted symbol, not the key; on a US layout these are the keys that type them.
constexpr char16_t shiftedSymbols[] = u"!@#$%^&*()_+{}|:\"<>?~";
constexpr char16_t unshiftedSymbols[] = u"1234567890-=[]\\;',./`";

// Qt key values below this are the Unicode code point the key types, upper-cased.
constexpr int firstSpecialQtKey = 0x01000000;

bool typesCharacter(Qt::Key key)
{
    return key > Qt::Key_Space && key < firstSpecialQtKey;
}

} // namespace

std::optional<quint16> QtKeyEventTranslator::macKeyCodeForXkbKeyCode(quint32 xkbKeyCode)
{
    if (xkbKeyCode < xkbOffset) {
        return std::nullopt;
    }
    const auto found = macKeyCodesByEvdevCode().constFind(xkbKeyCode - xkbOffset);
    if (found == macKeyCodesByEvdevCode().constEnd()) {
        return std::nullopt;
    }
    return *found;
}

std::optional<quint16> QtKeyEventTranslator::macKeyCodeForQtKey(Qt::Key key)
{
    const auto special = macKeyCodesForSpecialQtKeys().constFind(key);
    if (special != macKeyCodesForSpecialQtKeys().constEnd()) {
        return *special;
    }
    QString name;
    if (key >= Qt::Key_F1 && key <= Qt::Key_F12) {
        name = QStringLiteral("F%1").arg(key - Qt::Key_F1 + 1);
    } else if (typesCharacter(key) && key < 0x80) {
        QChar symbol(key);
        const qsizetype shifted = std::u16string_view(shiftedSymbols).find(symbol.unicode());
        if (shifted != qsizetype(std::u16string_view::npos)) {
            symbol = unshiftedSymbols[shifted];
        }
        name = symbol;
    } else {
        return std::nullopt;
    }
    const auto found = ParsedHotkey::keyCodes().constFind(name);
    if (found == ParsedHotkey::keyCodes().constEnd()) {
        return std::nullopt;
    }
    return *found;
}

HotkeyKeyEvent QtKeyEventTranslator::translate(Qt::Key key, Qt::KeyboardModifiers modifiers,
                                               quint32 nativeCode, const QString& text) const
{
    HotkeyKeyEvent event;
    event.keyCode = macKeyCode(key, nativeCode);
    event.modifierFlags = macModifiers(modifiers);
    if (typesCharacter(key)) {
        const char32_t codePoint = static_cast<char32_t>(key);
        event.charactersIgnoringModifiers = QString::fromUcs4(&codePoint, 1).toLower();
    } else if (key == Qt::Key_Space) {
        event.charactersIgnoringModifiers = QStringLiteral(" ");
    } else if (!text.isEmpty() &&
               std::all_of(text.begin(), text.end(), [](QChar c) { return c.isPrint(); })) {
        event.charactersIgnoringModifiers = text;
    }
    return event;
}

quint16 QtKeyEventTranslator::macKeyCode(Qt::Key key, quint32 nativeCode) const
{
    switch (m_source) {
    case Source::Mac:
        return static_cast<quint16>(nativeCode);
    case Source::Xkb:
        if (const auto physical = macKeyCodeForXkbKeyCode(nativeCode)) {
            return *physical;
        }
        break;
    case Source::Generic:
        break;
    }
    return macKeyCodeForQtKey(key).value_or(MacKeyCode::none);
}

HotkeyModifiers QtKeyEventTranslator::macModifiers(Qt::KeyboardModifiers modifiers) const
{
    const bool mac = m_source == Source::Mac;
    HotkeyModifiers flags;
    flags.setFlag(HotkeyModifier::Shift, modifiers.testFlag(Qt::ShiftModifier));
    flags.setFlag(HotkeyModifier::Option, modifiers.testFlag(Qt::AltModifier));
    flags.setFlag(HotkeyModifier::Command, modifiers.testFlag(mac ? Qt::ControlModifier : Qt::MetaModifier));
    flags.setFlag(HotkeyModifier::Control, modifiers.testFlag(mac ? Qt::MetaModifier : Qt::ControlModifier));
    return flags;
}
