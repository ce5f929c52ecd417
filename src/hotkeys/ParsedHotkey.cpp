#include "hotkeys/ParsedHotkey.h"

#include <QStringList>
#include <array>
#include <utility>

namespace {

// Read in both spellings, written only in the canonical one. Plain, case-sensitive, in this order:
// only the lower-case "option" is rewritten, "Option" is matched as a modifier further on.
constexpr std::array<std::pair<const char16_t*, const char16_t*>, 5> parseReplacements{{
    {u"option", u"Alt"},
    {u"⌥", u"Alt"},
    {u"⌘", u"Command"},
    {u"⇧", u"Shift"},
    {u"⌃", u"Control"},
}};

} // namespace

const QHash<QString, quint16>& ParsedHotkey::keyCodes()
{
    static const QHash<QString, quint16> table{
        {QStringLiteral("A"), 0},
        {QStringLiteral("S"), 1},
        {QStringLiteral("D"), 2},
        {QStringLiteral("F"), 3},
        {QStringLiteral("H"), 4},
        {QStringLiteral("G"), 5},
        {QStringLiteral("Z"), 6},
        {QStringLiteral("X"), 7},
        {QStringLiteral("C"), 8},
        {QStringLiteral("V"), 9},
        {QStringLiteral("B"), 11},
        {QStringLiteral("Q"), 12},
        {QStringLiteral("W"), 13},
        {QStringLiteral("E"), 14},
        {QStringLiteral("R"), 15},
        {QStringLiteral("Y"), 16},
        {QStringLiteral("T"), 17},
        {QStringLiteral("1"), 18},
        {QStringLiteral("2"), 19},
        {QStringLiteral("3"), 20},
        {QStringLiteral("4"), 21},
        {QStringLiteral("6"), 22},
        {QStringLiteral("5"), 23},
        {QStringLiteral("="), 24},
        {QStringLiteral("EQUAL"), 24},
        {QStringLiteral("9"), 25},
        {QStringLiteral("7"), 26},
        {QStringLiteral("-"), 27},
        {QStringLiteral("MINUS"), 27},
        {QStringLiteral("8"), 28},
        {QStringLiteral("0"), 29},
        {QStringLiteral("]"), 30},
        {QStringLiteral("BRACKETRIGHT"), 30},
        {QStringLiteral("O"), 31},
        {QStringLiteral("U"), 32},
        {QStringLiteral("["), 33},
        {QStringLiteral("BRACKETLEFT"), 33},
        {QStringLiteral("I"), 34},
        {QStringLiteral("P"), 35},
        {QStringLiteral("L"), 37},
        {QStringLiteral("J"), 38},
        {QStringLiteral("'"), 39},
        {QStringLiteral("QUOTE"), 39},
        {QStringLiteral("K"), 40},
        {QStringLiteral(";"), 41},
        {QStringLiteral("SEMICOLON"), 41},
        {QStringLiteral("\\"), 42},
        {QStringLiteral("BACKSLASH"), 42},
        {QStringLiteral(","), 43},
        {QStringLiteral("COMMA"), 43},
        {QStringLiteral("/"), 44},
        {QStringLiteral("SLASH"), 44},
        {QStringLiteral("N"), 45},
        {QStringLiteral("M"), 46},
        {QStringLiteral("."), 47},
        {QStringLiteral("PERIOD"), 47},
        {QStringLiteral("`"), 50},
        {QStringLiteral("BACKQUOTE"), 50},
        {QStringLiteral("SPACE"), 49},
        {QStringLiteral("TAB"), 48},
        {QStringLiteral("RETURN"), 36},
        {QStringLiteral("ENTER"), 36},
        {QStringLiteral("LEFT"), 123},
        {QStringLiteral("RIGHT"), 124},
        {QStringLiteral("DOWN"), 125},
        {QStringLiteral("UP"), 126},
        {QStringLiteral("ESCAPE"), 53},
        {QStringLiteral("ESC"), 53},
        {QStringLiteral("F1"), 122},
        {QStringLiteral("F2"), 120},
        {QStringLiteral("F3"), 99},
        {QStringLiteral("F4"), 118},
        {QStringLiteral("F5"), 96},
        {QStringLiteral("F6"), 97},
        {QStringLiteral("F7"), 98},
        {QStringLiteral("F8"), 100},
        {QStringLiteral("F9"), 101},
        {QStringLiteral("F10"), 109},
        {QStringLiteral("F11"), 103},
        {QStringLiteral("F12"), 111},
    };
    return table;
}

std::optional<ParsedHotkey> ParsedHotkey::parse(const QString& text)
{
    QString rewritten = text;
    for (const auto& [from, to] : parseReplacements) {
        rewritten.replace(QString::fromUtf16(from), QString::fromUtf16(to));
    }

    QStringList pieces;
    for (const QString& piece : rewritten.split(u'+', Qt::SkipEmptyParts)) {
        const QString trimmed = piece.trimmed();
        if (!trimmed.isEmpty()) {
            pieces.append(trimmed);
        }
    }
    if (pieces.isEmpty()) {
        return std::nullopt;
    }

    const auto key = keyCodes().constFind(pieces.takeLast().toUpper());
    if (key == keyCodes().constEnd()) {
        return std::nullopt;
    }
    ParsedHotkey hotkey;
    hotkey.keyCode = *key;
    for (const QString& piece : std::as_const(pieces)) {
        const QString modifier = piece.toLower();
        if (modifier == u"alt" || modifier == u"option") {
            hotkey.option = true;
        } else if (modifier == u"cmd" || modifier == u"command") {
            hotkey.command = true;
        } else if (modifier == u"shift") {
            hotkey.shift = true;
        } else if (modifier == u"ctrl" || modifier == u"control") {
            hotkey.control = true;
        } else {
            return std::nullopt;
        }
    }
    return hotkey;
}

QString ParsedHotkey::notAssigned()
{
    return QStringLiteral("Not assigned");
}

bool ParsedHotkey::isNotAssigned(const QString& text)
{
    return text.toLower() == u"not assigned";
}

QString ParsedHotkey::canonicalSignature() const
{
    const auto bit = [](bool flag) { return QChar(flag ? u'1' : u'0'); };
    return QStringLiteral("%1:%2:%3:%4:%5")
        .arg(keyCode)
        .arg(bit(option))
        .arg(bit(command))
        .arg(bit(shift))
        .arg(bit(control));
}

HotkeyModifiers ParsedHotkey::modifiers() const
{
    HotkeyModifiers flags;
    flags.setFlag(HotkeyModifier::Option, option);
    flags.setFlag(HotkeyModifier::Command, command);
    flags.setFlag(HotkeyModifier::Shift, shift);
    flags.setFlag(HotkeyModifier::Control, control);
    return flags;
}
