#include "X11SyntheticKeyboard.h"

#include "X11DisplayConnection.h"
#include "X11KeyPositions.h"
#include "X11ModifierKeyState.h"
#include "X11WindowProperty.h"
#include "hotkeys/MacKeyCode.h"

#include <QStringList>
#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>
#include <algorithm>
#include <cstring>
#include <xkbcommon/xkbcommon.h>

X11SyntheticKeyboard::X11SyntheticKeyboard(Display* display, std::function<QString()> frontIdentifier)
    : m_display(display), m_frontIdentifier(std::move(frontIdentifier)),
      m_hasXTest(X11DisplayConnection::hasXTest(display))
{}

bool X11SyntheticKeyboard::isTerminal(const QString& windowClass)
{
    static const QStringList terminals{
        "xterm",
        "uxterm",
        "urxvt",
        "rxvt",
        "gnome-terminal",
        "gnome-terminal-server",
        "konsole",
        "xfce4-terminal",
        "mate-terminal",
        "lxterminal",
        "qterminal",
        "terminator",
        "tilix",
        "alacritty",
        "kitty",
        "st",
        "st-256color",
        "foot",
        "wezterm",
        "org.wezfurlong.wezterm",
        "sakura",
        "terminology",
        "guake",
        "tilda",
        "yakuake",
        "kgx",
        "org.gnome.console",
        "ptyxis",
        "org.gnome.ptyxis",
        "contour",
    };
    return terminals.contains(windowClass.toLower());
}

X11SyntheticKeyboard::~X11SyntheticKeyboard()
{
    if (m_borrowedKeys.empty()) {
        return;
    }
    KeySym none = NoSymbol;
    for (const auto& [symbol, keycode] : m_borrowedKeys) {
        XChangeKeyboardMapping(m_display, keycode, 1, &none, 1);
    }
    XFlush(m_display);
}

unsigned long X11SyntheticKeyboard::usLabel(quint16 virtualKey)
{
    // XKB names the keys of the alphanumeric block by row and column: AE01 (1), AD01 (Q), AC01 (A)...
    const char* name = X11KeyPositions::keyName(virtualKey);
    if (name == nullptr || name[0] != 'A' || std::strlen(name) != 4) {
        return NoSymbol;
    }
    struct Us {
        xkb_context* context = xkb_context_new(XKB_CONTEXT_NO_FLAGS);
        xkb_rule_names names{"evdev", "pc105", "us", "", ""};
        xkb_keymap* keymap =
            context ? xkb_keymap_new_from_names(context, &names, XKB_KEYMAP_COMPILE_NO_FLAGS) : nullptr;
    };
    static const Us us;
    if (us.keymap == nullptr) {
        return NoSymbol;
    }
    const xkb_keycode_t keycode = xkb_keymap_key_by_name(us.keymap, name);
    const xkb_keysym_t* symbols = nullptr;
    if (keycode == XKB_KEYCODE_INVALID ||
        xkb_keymap_key_get_syms_by_level(us.keymap, keycode, 0, 0, &symbols) < 1) {
        return NoSymbol;
    }
    return symbols[0];
}

unsigned char X11SyntheticKeyboard::shortcutKey(quint16 virtualKey)
{
    const KeySym label = usLabel(virtualKey);
    if (label == NoSymbol) {
        return 0;
    }
    // Applications match shortcuts by the symbol a key types, so the key typing "c" in any group is the
    // copy key, wherever it sits.
    if (const KeyCode typed = XKeysymToKeycode(m_display, label); typed != 0) {
        return typed;
    }
    // WORKAROUND: a keymap without Latin letters (Russian alone) has no key that types "c", and
    // applications that match by symbol then take no Control+C at all. An unused keycode is given the
    // letter for as long as this keyboard lives; the keymap is otherwise left as it was.
    // A keymap loaded since (setxkbmap) has taken the letter back.
    if (const auto borrowed = m_borrowedKeys.find(label); borrowed != m_borrowedKeys.end()) {
        if (XkbKeycodeToKeysym(m_display, borrowed->second, 0, 0) == label) {
            return borrowed->second;
        }
        m_borrowedKeys.erase(borrowed);
    }
    int minKeycode = 0;
    int maxKeycode = 0;
    XDisplayKeycodes(m_display, &minKeycode, &maxKeycode);
    int perKeycode = 0;
    const XPtr<KeySym> symbols(
        XGetKeyboardMapping(m_display, KeyCode(minKeycode), maxKeycode - minKeycode + 1, &perKeycode));
    if (!symbols) {
        return 0;
    }
    for (int keycode = maxKeycode; keycode >= minKeycode; --keycode) {
        const KeySym* row = symbols.get() + std::ptrdiff_t(keycode - minKeycode) * perKeycode;
        if (std::all_of(row, row + perKeycode, [](KeySym symbol) { return symbol == NoSymbol; })) {
            KeySym cases[2] = {NoSymbol, NoSymbol};
            XConvertCase(label, &cases[0], &cases[1]);
            XChangeKeyboardMapping(m_display, keycode, 2, cases, 1);
            XSync(m_display, False);
            m_borrowedKeys.emplace(label, static_cast<unsigned char>(keycode));
            return static_cast<unsigned char>(keycode);
        }
    }
    return 0;
}

bool X11SyntheticKeyboard::post(unsigned char keycode, bool press)
{
    return XTestFakeKeyEvent(m_display, keycode, press ? True : False, CurrentTime) != 0;
}

bool X11SyntheticKeyboard::pressShortcut(quint16 virtualKey)
{
    if (!m_hasXTest) {
        return false;
    }
    const unsigned char key = shortcutKey(virtualKey);
    const unsigned char control = XKeysymToKeycode(m_display, XK_Control_L);
    if (key == 0 || control == 0) {
        return false;
    }
    // WORKAROUND: a hotkey held down makes its passive grab the keyboard's active grab again with each
    // auto-repeat; when that grab is this connection's, the shortcut would come back here.
    XUngrabKeyboard(m_display, CurrentTime);

    bool posted = true;
    // WORKAROUND: XTest events carry no flags of their own; the server adds whatever is held, so Alt
    // still held from Alt+A would make the copy Control+Alt+C. Each held modifier is pressed (a no-op
    // when this device already holds it, and it then owns the key) and released, which lets it go
    // whichever keyboard holds it.
    m_liftedModifiers = X11ModifierKeyState::heldModifierKeys(m_display);
    for (const unsigned char modifier : m_liftedModifiers) {
        posted = post(modifier, true) && posted;
        posted = post(modifier, false) && posted;
    }
    m_pressedModifiers = {control};
    if ((virtualKey == MacKeyCode::c || virtualKey == MacKeyCode::v) && m_frontIdentifier &&
        isTerminal(m_frontIdentifier())) {
        m_pressedModifiers.push_back(XKeysymToKeycode(m_display, XK_Shift_L));
    }
    for (const unsigned char modifier : m_pressedModifiers) {
        posted = post(modifier, true) && posted;
    }
    posted = post(key, true) && posted;
    XFlush(m_display);
    return posted;
}

bool X11SyntheticKeyboard::releaseShortcut(quint16 virtualKey)
{
    if (!m_hasXTest) {
        return false;
    }
    const unsigned char key = shortcutKey(virtualKey);
    if (key == 0) {
        return false;
    }
    bool posted = post(key, false);
    std::for_each(m_pressedModifiers.crbegin(), m_pressedModifiers.crend(),
                  [&](unsigned char modifier) { posted = post(modifier, false) && posted; });
    m_pressedModifiers.clear();
    // The user's fingers are still on them: the server's state must say so again, or the next chord
    // pressed without lifting them would arrive bare.
    for (const unsigned char modifier : m_liftedModifiers) {
        posted = post(modifier, true) && posted;
    }
    m_liftedModifiers.clear();
    XFlush(m_display);
    return posted;
}
