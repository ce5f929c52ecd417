#include "platform/x11/X11KeyPositions.h"

#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <cstring>
#include <memory>
#include <utility>

namespace {

// Indexed by macOS virtual key code. Codes 10 and 50 follow the ISO keyboard, where the mac section key
// sits beside Left Shift. Of the keypad only Enter is here: the keypad's decimal key types "," on many
// native layouts and would take over the layout map's entry of the "." key.
constexpr std::array<const char*, 128> keyNames = [] {
    std::array<const char*, 128> names{};
    const std::pair<int, const char*> table[] = {
        {0, "AC01"},   {1, "AC02"},   {2, "AC03"},   {3, "AC04"},   {4, "AC06"},   {5, "AC05"},
        {6, "AB01"},   {7, "AB02"},   {8, "AB03"},   {9, "AB04"},   {10, "LSGT"},  {11, "AB05"},
        {12, "AD01"},  {13, "AD02"},  {14, "AD03"},  {15, "AD04"},  {16, "AD06"},  {17, "AD05"},
        {18, "AE01"},  {19, "AE02"},  {20, "AE03"},  {21, "AE04"},  {22, "AE06"},  {23, "AE05"},
        {24, "AE12"},  {25, "AE09"},  {26, "AE07"},  {27, "AE11"},  {28, "AE08"},  {29, "AE10"},
        {30, "AD12"},  {31, "AD09"},  {32, "AD07"},  {33, "AD11"},  {34, "AD08"},  {35, "AD10"},
        {36, "RTRN"},  {37, "AC09"},  {38, "AC07"},  {39, "AC11"},  {40, "AC08"},  {41, "AC10"},
        {42, "BKSL"},  {43, "AB08"},  {44, "AB10"},  {45, "AB06"},  {46, "AB07"},  {47, "AB09"},
        {48, "TAB"},   {49, "SPCE"},  {50, "TLDE"},  {51, "BKSP"},  {53, "ESC"},   {64, "FK17"},
        {76, "KPEN"},  {79, "FK18"},  {80, "FK19"},  {90, "FK20"},  {93, "AE13"},  {94, "AB11"},
        {96, "FK05"},  {97, "FK06"},  {98, "FK07"},  {99, "FK03"},  {100, "FK08"}, {101, "FK09"},
        {103, "FK11"}, {105, "FK13"}, {106, "FK16"}, {107, "FK14"}, {109, "FK10"}, {111, "FK12"},
        {113, "FK15"}, {114, "INS"},  {115, "HOME"}, {116, "PGUP"}, {117, "DELE"}, {118, "FK04"},
        {119, "END"},  {120, "FK02"}, {121, "PGDN"}, {122, "FK01"}, {123, "LEFT"}, {124, "RGHT"},
        {125, "DOWN"}, {126, "UP"},
    };
    for (const auto& [code, name] : table) {
        names[code] = name;
    }
    return names;
}();

bool sameKeyName(const char (&name)[XkbKeyNameLength], const char* wanted)
{
    return std::strncmp(name, wanted, XkbKeyNameLength) == 0;
}

// Keycode sets name some keys only through an alias (evdev's AC12 is BKSL, say).
unsigned char keycodeNamed(const XkbDescRec& keymap, const char* wanted)
{
    for (int code = keymap.min_key_code; code <= keymap.max_key_code; ++code) {
        if (sameKeyName(keymap.names->keys[code].name, wanted)) {
            return static_cast<unsigned char>(code);
        }
    }
    for (int i = 0; i < keymap.names->num_key_aliases; ++i) {
        const XkbKeyAliasRec& alias = keymap.names->key_aliases[i];
        if (sameKeyName(alias.alias, wanted)) {
            const char real[XkbKeyNameLength + 1] = {alias.real[0], alias.real[1], alias.real[2],
                                                     alias.real[3], 0};
            return keycodeNamed(keymap, real);
        }
    }
    return 0;
}

struct KeymapFree {
    void operator()(XkbDescPtr keymap) const { XkbFreeKeyboard(keymap, XkbAllComponentsMask, True); }
};

} // namespace

const char* X11KeyPositions::keyName(quint16 macKeyCode)
{
    return macKeyCode < keyNames.size() ? keyNames[macKeyCode] : nullptr;
}

X11KeyPositions X11KeyPositions::read(Display* display)
{
    if (display == nullptr) {
        return {};
    }
    // The map's header alone (no components) carries the keycode range the names are indexed by.
    const std::unique_ptr<XkbDescRec, KeymapFree> keymap(XkbGetMap(display, 0, XkbUseCoreKbd));
    if (!keymap || XkbGetNames(display, XkbKeyNamesMask | XkbKeyAliasesMask, keymap.get()) != Success ||
        !keymap->names) {
        return {};
    }
    return of(*keymap);
}

X11KeyPositions X11KeyPositions::of(const XkbDescRec& keymap)
{
    X11KeyPositions positions;
    if (!keymap.names || !keymap.names->keys) {
        return positions;
    }
    for (std::size_t code = 0; code < keyNames.size(); ++code) {
        if (keyNames[code] != nullptr) {
            positions.m_keycodes[code] = keycodeNamed(keymap, keyNames[code]);
        }
    }
    return positions;
}

unsigned char X11KeyPositions::keycode(quint16 macKeyCode) const
{
    return macKeyCode < m_keycodes.size() ? m_keycodes[macKeyCode] : 0;
}
