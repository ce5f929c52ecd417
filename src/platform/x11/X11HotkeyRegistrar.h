#pragma once

#include "platform/GlobalHotkeyRegistrar.h"
#include "platform/x11/X11DisplayConnection.h"

#include <QByteArray>
#include <QSocketNotifier>
#include <memory>
#include <vector>

union _XEvent;

// Global hotkeys as passive key grabs on the root window, over a display connection of its own whose
// events are read on the GUI thread's event loop.
class X11HotkeyRegistrar : public GlobalHotkeyRegistrar {
public:
    // Statuses of its own, beside the X error codes (BadAccess when another client holds the chord).
    static constexpr qint32 noDisplayStatus = -1;
    static constexpr qint32 unknownKeyStatus = -2;

    // Connects to displayName, $DISPLAY when empty. Without a server every call answers noDisplayStatus.
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

    std::vector<unsigned> currentLockStates() const;
    void ungrab(const Grab& grab) const;
    void readEvents();
    void handleEvent(const _XEvent& event);
    // Xlib may have queued events while waiting for an answer; the socket will not announce those.
    void readQueuedEventsLater();

    X11DisplayConnection m_display;
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::vector<Grab> m_grabs;
    PressHandler m_handler;
    // The key of the chord being held, so auto-repeat does not fire it again.
    unsigned m_heldKeyCode = 0;
};
