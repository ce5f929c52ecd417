#include "platform/mac/MacHotkeyRegistrar.h"

#include <Carbon/Carbon.h>

namespace {

// The four-character code "MVRH", spelled out so no multi-character literal is needed.
constexpr OSType signature = (OSType('M') << 24) | (OSType('V') << 16) | (OSType('R') << 8) | OSType('H');

UInt32 carbonModifiers(HotkeyModifiers modifiers)
{
    UInt32 mask = 0;
    mask |= modifiers.testFlag(HotkeyModifier::Command) ? cmdKey : 0;
    mask |= modifiers.testFlag(HotkeyModifier::Shift) ? shiftKey : 0;
    mask |= modifiers.testFlag(HotkeyModifier::Option) ? optionKey : 0;
    mask |= modifiers.testFlag(HotkeyModifier::Control) ? controlKey : 0;
    return mask;
}

OSStatus hotkeyPressed(EventHandlerCallRef /*next*/, EventRef event, void* userData)
{
    EventHotKeyID hotkey{};
    const OSStatus status = GetEventParameter(event, kEventParamDirectObject, typeEventHotKeyID, nullptr,
                                              sizeof(hotkey), nullptr, &hotkey);
    const auto& handler = *static_cast<GlobalHotkeyRegistrar::PressHandler*>(userData);
    if (status == noErr && hotkey.signature == signature && handler) {
        handler(hotkey.id);
    }
    return noErr;
}

} // namespace

MacHotkeyRegistrar::~MacHotkeyRegistrar()
{
    unregisterAll();
    removePressHandler();
}

qint32 MacHotkeyRegistrar::installPressHandler(PressHandler handler)
{
    m_handler = std::move(handler);
    if (m_installed != nullptr) {
        return noErr;
    }
    const EventTypeSpec pressed{kEventClassKeyboard, kEventHotKeyPressed};
    return InstallEventHandler(GetApplicationEventTarget(), hotkeyPressed, 1, &pressed, &m_handler,
                               &m_installed);
}

void MacHotkeyRegistrar::removePressHandler()
{
    if (m_installed != nullptr) {
        RemoveEventHandler(m_installed);
        m_installed = nullptr;
    }
    m_handler = nullptr;
}

qint32 MacHotkeyRegistrar::registerHotkey(quint32 id, quint16 macKeyCode, HotkeyModifiers modifiers)
{
    EventHotKeyRef hotkey = nullptr;
    const OSStatus status =
        RegisterEventHotKey(macKeyCode, carbonModifiers(modifiers), EventHotKeyID{signature, id},
                            GetApplicationEventTarget(), 0, &hotkey);
    if (status != noErr) {
        return status;
    }
    // Success without a handle would leave nothing to release; it counts as refused.
    if (hotkey == nullptr) {
        return paramErr;
    }
    m_hotkeys.push_back(hotkey);
    return noErr;
}

void MacHotkeyRegistrar::unregisterAll()
{
    for (EventHotKeyRef hotkey : m_hotkeys) {
        UnregisterEventHotKey(hotkey);
    }
    m_hotkeys.clear();
}
