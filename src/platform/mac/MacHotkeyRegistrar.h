#pragma once

#include "platform/GlobalHotkeyRegistrar.h"

#include <vector>

// Carbon's own declarations of the two handles, repeated so this header stays free of Carbon.
struct OpaqueEventHandlerRef;
struct OpaqueEventHotKeyRef;

// Carbon hotkeys on the application's event target, every one under the signature "MVRH". Presses arrive as
// hotkey-pressed events on the main run loop.
class MacHotkeyRegistrar : public GlobalHotkeyRegistrar {
public:
    MacHotkeyRegistrar() = default;
    ~MacHotkeyRegistrar() override;
    MacHotkeyRegistrar(const MacHotkeyRegistrar&) = delete;
    MacHotkeyRegistrar& operator=(const MacHotkeyRegistrar&) = delete;

    qint32 installPressHandler(PressHandler handler) override;
    void removePressHandler() override;
    qint32 registerHotkey(quint32 id, quint16 macKeyCode, HotkeyModifiers modifiers) override;
    void unregisterAll() override;

private:
    // Its address is the user data of the installed event handler, so a later handler replaces it in place.
    PressHandler m_handler;
    OpaqueEventHandlerRef* m_installed = nullptr;
    std::vector<OpaqueEventHotKeyRef*> m_hotkeys;
};
