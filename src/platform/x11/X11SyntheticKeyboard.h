#pragma once

#include "X11DisplayConnection.h"
#include "platform/SyntheticKeyboard.h"

#include <QList>
#include <functional>
#include <optional>

// Synthetic shortcuts through XTest: Control plus the key. Terminals take copy and paste on
// Control+Shift+C / Control+Shift+V, since a plain Control+C interrupts the program running in them; which
// application is in front is asked of frontIdentifier (the class part of WM_CLASS). Never sleeps.
class X11SyntheticKeyboard : public SyntheticKeyboard {
public:
    // The display must outlive the keyboard; null gives a keyboard that posts nothing.
    X11SyntheticKeyboard(Display* display, std::function<QString()> frontIdentifier);

    bool pressShortcut(quint16 virtualKey) override;
    bool releaseShortcut(quint16 virtualKey) override;

    static bool isTerminal(const QString& windowClass);
    // The X key symbol of a macOS virtual key code of a letter or digit; nullopt for others.
    static std::optional<unsigned long> keySymbol(quint16 virtualKey);

private:
    bool post(unsigned int keycode, bool press);

    Display* m_display;
    std::function<QString()> m_frontIdentifier;
    bool m_hasXTest = false;
    // The modifiers the last press put down, released in reverse order.
    QList<unsigned int> m_heldModifiers;
};
