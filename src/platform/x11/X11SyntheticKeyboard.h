#pragma once

#include "platform/SyntheticKeyboard.h"

#include <QString>
#include <functional>
#include <map>
#include <vector>

// Xlib's own declaration, repeated so this header stays free of Xlib's macros.
typedef struct _XDisplay Display;

// Synthetic shortcuts through XTest: Control plus the key that types the letter the given position of the
// alphanumeric block has on a US keyboard, since applications match shortcuts by symbol. Terminals take copy
// and paste on Control+Shift+C / Control+Shift+V, since a plain Control+C interrupts the program running in
// them; which application is in front is asked of frontIdentifier (the class part of WM_CLASS). Modifiers the
// user still holds (the rest of the hotkey that led here) are let go for the shortcut's duration, so the
// target sees exactly the shortcut, as a synthetic event's own flags replace the held ones elsewhere. Never
// sleeps.
class X11SyntheticKeyboard : public SyntheticKeyboard {
public:
    // The display must outlive the keyboard; null gives a keyboard that posts nothing.
    X11SyntheticKeyboard(Display* display, std::function<QString()> frontIdentifier);
    ~X11SyntheticKeyboard() override;
    X11SyntheticKeyboard(const X11SyntheticKeyboard&) = delete;
    X11SyntheticKeyboard& operator=(const X11SyntheticKeyboard&) = delete;

    bool pressShortcut(quint16 virtualKey) override;
    bool releaseShortcut(quint16 virtualKey) override;

    static bool isTerminal(const QString& windowClass);

private:
    // The keysym the key of the alphanumeric block at this position types on a US keyboard, or NoSymbol.
    static unsigned long usLabel(quint16 virtualKey);
    // The keycode that types that keysym on the server's keymap, borrowing an unused one if none does;
    // 0 when there is neither.
    unsigned char shortcutKey(quint16 virtualKey);
    bool post(unsigned char keycode, bool press);

    Display* m_display;
    std::function<QString()> m_frontIdentifier;
    bool m_hasXTest = false;
    // The modifiers the last press put down, released in reverse order.
    std::vector<unsigned char> m_pressedModifiers;
    // The user's modifiers the last press let go, pressed again once the shortcut is released.
    std::vector<unsigned char> m_liftedModifiers;
    // Unused keycodes given a letter the keymap lacks, by keysym; emptied again when the keyboard goes.
    std::map<unsigned long, unsigned char> m_borrowedKeys;
};
