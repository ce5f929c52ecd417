#pragma once

#include "X11DisplayConnection.h"
#include "platform/ModifierKeyState.h"

#include <QList>

// The physical modifier keys from the server's key map (XQueryKeymap), so keys held for another
// application count too. Without a display nothing is ever held.
class X11ModifierKeyState : public ModifierKeyState {
public:
    // The display must outlive this object.
    explicit X11ModifierKeyState(Display* display);

    bool isAnyModifierHeld() override;

private:
    Display* m_display;
    QList<unsigned char> m_modifierKeys;
};
