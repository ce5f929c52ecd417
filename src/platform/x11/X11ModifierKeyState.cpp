#include "X11ModifierKeyState.h"

#include <X11/Xlib.h>
#include <X11/keysym.h>

X11ModifierKeyState::X11ModifierKeyState(Display* display) : m_display(display)
{
    if (m_display == nullptr) {
        return;
    }
    // Shift, Control, Alt (Option) and Super (Command), on both sides.
    for (const KeySym symbol : {XK_Shift_L, XK_Shift_R, XK_Control_L, XK_Control_R, XK_Alt_L, XK_Alt_R,
                                XK_Meta_L, XK_Meta_R, XK_Super_L, XK_Super_R, XK_ISO_Level3_Shift}) {
        const unsigned char code = XKeysymToKeycode(m_display, symbol);
        if (code != 0 && !m_modifierKeys.contains(code)) {
            m_modifierKeys.append(code);
        }
    }
}

bool X11ModifierKeyState::isAnyModifierHeld()
{
    if (m_display == nullptr) {
        return false;
    }
    char keys[32] = {};
    XQueryKeymap(m_display, keys);
    for (const unsigned char code : m_modifierKeys) {
        if ((keys[code / 8] & (1 << (code % 8))) != 0) {
            return true;
        }
    }
    return false;
}
