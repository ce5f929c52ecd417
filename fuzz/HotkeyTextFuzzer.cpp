#include "hotkeys/HotkeyFormatter.h"
#include "hotkeys/ParsedHotkey.h"

#include <QString>
#include <cstdint>
#include <cstdlib>

// A stored hotkey text comes from the settings file, which anyone can edit: the parser and the display form
// must take any text. A chord that parses must survive capture and parse again unchanged.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    (void)ParsedHotkey::isNotAssigned(text);
    (void)HotkeyFormatter::display(text);
    const std::optional<ParsedHotkey> parsed = ParsedHotkey::parse(text);
    if (!parsed) {
        return 0;
    }
    (void)parsed->canonicalSignature();
    const std::optional<QString> captured =
        HotkeyFormatter::capture(HotkeyKeyEvent{parsed->keyCode, parsed->modifiers(), {}});
    if (captured && ParsedHotkey::parse(*captured) != parsed) {
        std::abort();
    }
    return 0;
}
