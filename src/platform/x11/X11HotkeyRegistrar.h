#pragma once

#include "platform/GlobalHotkeyRegistrar.h"
#include "platform/x11/X11EventPump.h"
#include "platform/x11/X11KeyPositions.h"

#include <QByteArray>
#include <memory>
#include <vector>

// Global hotkeys as passive key grabs on the root window, on the keys at the chords' physical positions
// whatever the keymap. Presses are read through the event pump of the connection that holds the grabs.
class X11HotkeyRegistrar : public GlobalHotkeyRegistrar {
public:
    // Statuses of its own, beside the X error codes (BadAccess when another client holds the chord).
    static constexpr qint32 noDisplayStatus = -1;
    static constexpr qint32 unknownKeyStatus = -2;

    // Grabs on the pump's display and follows its events; the pump must outlive the registrar. Without a
    // display every call answers noDisplayStatus.
    explicit X11HotkeyRegistrar(X11EventPump& pump);
    // Connects to displayName ($DISPLAY when empty) and reads it with a pump of its own.
    explicit X11HotkeyRegistrar(const QByteArray& displayName = {});
    ~X11HotkeyRegistrar() override;
    X11HotkeyRegistrar(const X11HotkeyRegistrar&) = delete;
    X11HotkeyRegistrar& operator=(const X11HotkeyRegistrar&) = delete;

    qint32 installPressHandler(PressHandler handler) override;
    void removePressHandler() override;
    qint32 registerHotkey(quint32 id, quint16 macKeyCode, HotkeyModifiers modifiers) override;
    void unregisterAll() override;

private:
    struct Grab {
        quint32 id;
        unsigned keyCode;
        unsigned modifiers;
        // Caps Lock and Num Lock must not hide a chord, so each is grabbed with every lock state.
        std::vector<unsigned> lockStates;
    };
    struct OwnConnection;

    void follow(X11EventPump& pump);
    std::vector<unsigned> currentLockStates() const;
    void ungrab(const Grab& grab) const;
    void handleEvent(const XEvent& event);

    std::unique_ptr<OwnConnection> m_own;
    Display* m_display = nullptr;
    X11EventPump::Subscription m_subscription;
    // Read at the first registration of a pass, so a pass after a keymap change finds the keys anew.
    X11KeyPositions m_positions;
    std::vector<Grab> m_grabs;
    PressHandler m_handler;
    // The XInput 2 extension's opcode; its raw events tell when the chord's key goes up.
    X11RawInputSelection* m_rawInput = nullptr;
    int m_inputOpcode = 0;
    // The key of the chord being held, so auto-repeat does not fire it again.
    unsigned m_heldKeyCode = 0;
};
