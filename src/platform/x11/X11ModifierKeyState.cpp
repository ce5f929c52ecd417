#include "X11ModifierKeyState.h"

#include <X11/Xlib.h>
#include <X11/keysym.h>
#include <algorithm>
#include <memory>

namespace {

struct ModifierMapFree {
    void operator()(XModifierKeymap* map) const { XFreeModifiermap(map); }
};

} // namespace

X11ModifierKeyState::X11ModifierKeyState(Display* display) : m_display(display) {}

bool X11ModifierKeyState::isAnyModifierHeld()
{
    return !heldModifierKeys(m_display).empty();
}

std::vector<unsigned char> X11ModifierKeyState::heldModifierKeys(Display* display)
{
    if (display == nullptr) {
        return {};
    }
    // Asked each time, since the keymap may change under a running program (setxkbmap, a new keyboard).
    const std::unique_ptr<XModifierKeymap, ModifierMapFree> map(XGetModifierMapping(display));
    if (!map) {
        return {};
    }
    char keys[32] = {};
    XQueryKeymap(display, keys);
    // Num Lock toggles on every press, so it is never counted as held: no one may press it back.
    const KeyCode numLock = XKeysymToKeycode(display, XK_Num_Lock);
    std::vector<unsigned char> held;
    for (int modifier = 0; modifier < 8; ++modifier) {
        // Caps Lock is locked, not held, and a lock is no modifier the user presses with a shortcut.
        if (modifier == LockMapIndex) {
            continue;
        }
        for (int slot = 0; slot < map->max_keypermod; ++slot) {
            const unsigned char code = map->modifiermap[modifier * map->max_keypermod + slot];
            if (code != 0 && code != numLock && (keys[code / 8] & (1 << (code % 8))) != 0 &&
                std::find(held.begin(), held.end(), code) == held.end()) {
                held.push_back(code);
            }
        }
    }
    return held;
}
