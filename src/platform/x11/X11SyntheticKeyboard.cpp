#include "X11SyntheticKeyboard.h"

#include "X11DisplayConnection.h"

#include <QHash>
#include <QStringList>
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>

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

std::optional<unsigned long> X11SyntheticKeyboard::keySymbol(quint16 virtualKey)
{
    // macOS virtual key codes of the ANSI letter and digit keys.
    static const QHash<quint16, unsigned long> symbols{
        {0, XK_a},  {11, XK_b}, {8, XK_c},  {2, XK_d},  {14, XK_e}, {3, XK_f},  {5, XK_g},  {4, XK_h},
        {34, XK_i}, {38, XK_j}, {40, XK_k}, {37, XK_l}, {46, XK_m}, {45, XK_n}, {31, XK_o}, {35, XK_p},
        {12, XK_q}, {15, XK_r}, {1, XK_s},  {17, XK_t}, {32, XK_u}, {9, XK_v},  {13, XK_w}, {7, XK_x},
        {16, XK_y}, {6, XK_z},  {29, XK_0}, {18, XK_1}, {19, XK_2}, {20, XK_3}, {21, XK_4}, {23, XK_5},
        {22, XK_6}, {26, XK_7}, {28, XK_8}, {25, XK_9},
    };
    const auto it = symbols.constFind(virtualKey);
    return it == symbols.cend() ? std::nullopt : std::optional(*it);
}

bool X11SyntheticKeyboard::post(unsigned int keycode, bool press)
{
    return XTestFakeKeyEvent(m_display, keycode, press ? True : False, CurrentTime) != 0;
}

bool X11SyntheticKeyboard::pressShortcut(quint16 virtualKey)
{
    const std::optional<unsigned long> symbol = keySymbol(virtualKey);
    if (!m_hasXTest || !symbol) {
        return false;
    }
    const unsigned int key = XKeysymToKeycode(m_display, KeySym(*symbol));
    const unsigned int control = XKeysymToKeycode(m_display, XK_Control_L);
    if (key == 0 || control == 0) {
        return false;
    }
    m_heldModifiers = {control};
    const bool copyOrPaste = *symbol == XK_c || *symbol == XK_v;
    if (copyOrPaste && m_frontIdentifier && isTerminal(m_frontIdentifier())) {
        m_heldModifiers.append(XKeysymToKeycode(m_display, XK_Shift_L));
    }
    bool posted = true;
    for (const unsigned int modifier : m_heldModifiers) {
        posted = post(modifier, true) && posted;
    }
    posted = post(key, true) && posted;
    XFlush(m_display);
    return posted;
}

bool X11SyntheticKeyboard::releaseShortcut(quint16 virtualKey)
{
    const std::optional<unsigned long> symbol = keySymbol(virtualKey);
    if (!m_hasXTest || !symbol) {
        return false;
    }
    bool posted = post(XKeysymToKeycode(m_display, KeySym(*symbol)), false);
    for (auto it = m_heldModifiers.crbegin(); it != m_heldModifiers.crend(); ++it) {
        posted = post(*it, false) && posted;
    }
    m_heldModifiers.clear();
    XFlush(m_display);
    return posted;
}
