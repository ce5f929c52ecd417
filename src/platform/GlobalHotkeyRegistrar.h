#pragma once

#include "hotkeys/HotkeyModifier.h"

#include <QtGlobal>
#include <functional>

// Claims chords for the whole desktop and reports their presses. Chords are given in macOS virtual key
// codes on every platform, as hotkeys are stored. All members are for the GUI thread; none waits for more
// than a round trip to the platform.
class GlobalHotkeyRegistrar {
public:
    using PressHandler = std::function<void(quint32 id)>;

    virtual ~GlobalHotkeyRegistrar() = default;

    // Starts reporting presses to handler, on the GUI thread, replacing any earlier handler. Returns 0, or
    // a non-zero platform status when presses cannot be received at all (no display connection).
    virtual qint32 installPressHandler(PressHandler handler) = 0;
    // Stops reporting presses; registrations stay. Non-blocking.
    virtual void removePressHandler() = 0;
    // Claims the chord under id. Waits for the platform's answer. Returns 0 when the chord is claimed, else
    // a non-zero platform status (held by another client, a key this platform cannot grab); a refused
    // chord leaves nothing claimed and every other registration in force.
    virtual qint32 registerHotkey(quint32 id, quint16 macKeyCode, HotkeyModifiers modifiers) = 0;
    // Releases every chord claimed so far. Waits for the platform's answer.
    virtual void unregisterAll() = 0;
};
