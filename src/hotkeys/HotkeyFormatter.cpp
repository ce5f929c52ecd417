#include "hotkeys/HotkeyFormatter.h"

#include "hotkeys/ParsedHotkey.h"

#include <QStringList>
#include <array>
#include <utility>

namespace {

// Plain, case-sensitive, in this order.
constexpr std::array<std::pair<const char16_t*, const char16_t*>, 7> displayReplacements{{
    {u"Option", u"Alt"},
    {u"⌥", u"Alt"},
    {u"Cmd", u"Command"},
    {u"⌘", u"Command"},
    {u"Ctrl", u"Control"},
    {u"⌃", u"Control"},
    {u"⇧", u"Shift"},
}};

// Matched exactly: upper-case key names other than "SPACE" are shown as written.
const QHash<QString, QString>& displaySymbols()
{
    static const QHash<QString, QString> table{
        {QStringLiteral("Command"), QStringLiteral("⌘")},
        {QStringLiteral("Control"), QStringLiteral("⌃")},
        {QStringLiteral("Alt"), QStringLiteral("⌥")},
        {QStringLiteral("Shift"), QStringLiteral("⇧")},
        {QStringLiteral("Space"), QStringLiteral("Space")},
        {QStringLiteral("SPACE"), QStringLiteral("Space")},
        {QStringLiteral("Period"), QStringLiteral(".")},
        {QStringLiteral("Comma"), QStringLiteral(",")},
        {QStringLiteral("Slash"), QStringLiteral("/")},
        {QStringLiteral("Return"), QStringLiteral("↩")},
        {QStringLiteral("Right"), QStringLiteral("→")},
        {QStringLiteral("Up"), QStringLiteral("↑")},
        {QStringLiteral("Backslash"), QStringLiteral("\\")},
        {QStringLiteral("Semicolon"), QStringLiteral(";")},
        {QStringLiteral("Quote"), QStringLiteral("'")},
        {QStringLiteral("BracketLeft"), QStringLiteral("[")},
        {QStringLiteral("BracketRight"), QStringLiteral("]")},
        {QStringLiteral("Minus"), QStringLiteral("-")},
        {QStringLiteral("Equal"), QStringLiteral("=")},
        {QStringLiteral("Backquote"), QStringLiteral("`")},
        {QStringLiteral("Left"), QStringLiteral("←")},
        {QStringLiteral("Down"), QStringLiteral("↓")},
    };
    return table;
}

bool isAsciiUpperOrDigit(QChar c)
{
    return (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9');
}

} // namespace

const QHash<quint16, QString>& HotkeyFormatter::keyCodeNames()
{
    static const QHash<quint16, QString> table{
        {0, QStringLiteral("A")},
        {1, QStringLiteral("S")},
        {2, QStringLiteral("D")},
        {3, QStringLiteral("F")},
        {4, QStringLiteral("H")},
        {5, QStringLiteral("G")},
        {6, QStringLiteral("Z")},
        {7, QStringLiteral("X")},
        {8, QStringLiteral("C")},
        {9, QStringLiteral("V")},
        {11, QStringLiteral("B")},
        {12, QStringLiteral("Q")},
        {13, QStringLiteral("W")},
        {14, QStringLiteral("E")},
        {15, QStringLiteral("R")},
        {16, QStringLiteral("Y")},
        {17, QStringLiteral("T")},
        {18, QStringLiteral("1")},
        {19, QStringLiteral("2")},
        {20, QStringLiteral("3")},
        {21, QStringLiteral("4")},
        {22, QStringLiteral("6")},
        {23, QStringLiteral("5")},
        {24, QStringLiteral("Equal")},
        {25, QStringLiteral("9")},
        {26, QStringLiteral("7")},
        {27, QStringLiteral("Minus")},
        {28, QStringLiteral("8")},
        {29, QStringLiteral("0")},
        {30, QStringLiteral("BracketRight")},
        {31, QStringLiteral("O")},
        {32, QStringLiteral("U")},
        {33, QStringLiteral("BracketLeft")},
        {34, QStringLiteral("I")},
        {35, QStringLiteral("P")},
        {36, QStringLiteral("Return")},
        {37, QStringLiteral("L")},
        {38, QStringLiteral("J")},
        {39, QStringLiteral("Quote")},
        {40, QStringLiteral("K")},
        {41, QStringLiteral("Semicolon")},
        {42, QStringLiteral("Backslash")},
        {43, QStringLiteral("Comma")},
        {44, QStringLiteral("Slash")},
        {45, QStringLiteral("N")},
        {46, QStringLiteral("M")},
        {47, QStringLiteral("Period")},
        {49, QStringLiteral("Space")},
        {50, QStringLiteral("Backquote")},
        {96, QStringLiteral("F5")},
        {97, QStringLiteral("F6")},
        {98, QStringLiteral("F7")},
        {99, QStringLiteral("F3")},
        {100, QStringLiteral("F8")},
        {101, QStringLiteral("F9")},
        {103, QStringLiteral("F11")},
        {109, QStringLiteral("F10")},
        {111, QStringLiteral("F12")},
        {118, QStringLiteral("F4")},
        {120, QStringLiteral("F2")},
        {122, QStringLiteral("F1")},
        {123, QStringLiteral("Left")},
        {124, QStringLiteral("Right")},
        {125, QStringLiteral("Down")},
        {126, QStringLiteral("Up")},
    };
    return table;
}

QString HotkeyFormatter::display(const QString& hotkey)
{
    QString rewritten = hotkey;
    for (const auto& [from, to] : displayReplacements) {
        rewritten.replace(QString::fromUtf16(from), QString::fromUtf16(to));
    }
    if (rewritten.isEmpty() || ParsedHotkey::isNotAssigned(rewritten)) {
        return ParsedHotkey::notAssigned();
    }

    QStringList shown;
    for (const QString& piece : rewritten.split(u'+', Qt::SkipEmptyParts)) {
        shown.append(displaySymbols().value(piece, piece));
    }
    return shown.join(u' ');
}

std::optional<QString> HotkeyFormatter::keyName(const HotkeyKeyEvent& event)
{
    const auto named = keyCodeNames().constFind(event.keyCode);
    if (named != keyCodeNames().constEnd()) {
        return *named;
    }
    if (!event.charactersIgnoringModifiers) {
        return std::nullopt;
    }
    // Upper-casing never merges characters nor drops combining marks, so a single ASCII letter or digit
    // after it means the key typed exactly one character ("ı" and "ſ" included).
    const QString upper = event.charactersIgnoringModifiers->toUpper();
    if (upper.size() != 1 || !isAsciiUpperOrDigit(upper.front())) {
        return std::nullopt;
    }
    return upper;
}

std::optional<QString> HotkeyFormatter::capture(const HotkeyKeyEvent& event)
{
    const std::optional<QString> key = keyName(event);
    if (!key) {
        return std::nullopt;
    }
    QStringList pieces;
    const std::array<std::pair<HotkeyModifier, const char*>, 4> order{{
        {HotkeyModifier::Command, "Command"},
        {HotkeyModifier::Control, "Control"},
        {HotkeyModifier::Option, "Alt"},
        {HotkeyModifier::Shift, "Shift"},
    }};
    for (const auto& [flag, name] : order) {
        if (event.modifierFlags.testFlag(flag)) {
            pieces.append(QString::fromLatin1(name));
        }
    }
    if (pieces.isEmpty()) {
        return std::nullopt;
    }
    pieces.append(*key);
    return pieces.join(u'+');
}
