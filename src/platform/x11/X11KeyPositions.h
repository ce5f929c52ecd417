#pragma once

#include <QtGlobal>
#include <array>

// Xlib's own declarations, repeated so this header stays free of Xlib's macros.
typedef struct _XDisplay Display;
typedef struct _XkbDesc XkbDescRec;

// Keys by where they sit on the keyboard. Hotkeys and shortcuts are stored as macOS virtual key codes,
// which name physical keys; each has an XKB key name ("AC01" for code 0, the key right of Caps Lock), and
// the server's keymap names its keycodes the same way. So "Alt+A" is one key on QWERTY, AZERTY, Dvorak
// and a Cyrillic-only keymap alike, while a keysym lookup would find another key or none at all.
class X11KeyPositions {
public:
    // The XKB key name of the key with this macOS virtual key code, or nullptr for codes that no PC
    // keyboard has.
    static const char* keyName(quint16 macKeyCode);

    // The positions of the server's current keymap; one round trip. Every keycode is 0 without XKB.
    static X11KeyPositions read(Display* display);
    // The positions of a keymap already fetched with its key names and aliases.
    static X11KeyPositions of(const XkbDescRec& keymap);

    // The keycode of the key at this position, or 0 when the keymap has no key there.
    unsigned char keycode(quint16 macKeyCode) const;

private:
    std::array<unsigned char, 128> m_keycodes{};
};
