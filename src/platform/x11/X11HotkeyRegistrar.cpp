#include "platform/x11/X11HotkeyRegistrar.h"

#include "core/EventLoopClock.h"
#include "platform/x11/X11DisplayConnection.h"
#include "platform/x11/X11ErrorTrap.h"

#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/extensions/XInput2.h>
#include <X11/keysym.h>

namespace {

// Command is the Super key here, as desktops mark it with their own logo.
unsigned xModifiers(HotkeyModifiers modifiers)
{
    unsigned mask = 0;
    if (modifiers.testFlag(HotkeyModifier::Shift)) {
        mask |= ShiftMask;
    }
    if (modifiers.testFlag(HotkeyModifier::Control)) {
        mask |= ControlMask;
    }
    if (modifiers.testFlag(HotkeyModifier::Option)) {
        mask |= Mod1Mask;
    }
    if (modifiers.testFlag(HotkeyModifier::Command)) {
        mask |= Mod4Mask;
    }
    return mask;
}

constexpr unsigned chordModifierMask = ShiftMask | ControlMask | Mod1Mask | Mod4Mask;

struct ModifierMapFree {
    void operator()(XModifierKeymap* map) const { XFreeModifiermap(map); }
};

// Num Lock sits on whichever modifier the keymap puts it; usually Mod2, but not by any rule.
unsigned numLockMask(Display* display)
{
    const KeyCode numLock = XKeysymToKeycode(display, XK_Num_Lock);
    if (numLock == 0) {
        return 0;
    }
    const std::unique_ptr<XModifierKeymap, ModifierMapFree> map(XGetModifierMapping(display));
    if (!map) {
        return 0;
    }
    for (int modifier = 0; modifier < 8; ++modifier) {
        for (int slot = 0; slot < map->max_keypermod; ++slot) {
            if (map->modifiermap[modifier * map->max_keypermod + slot] == numLock) {
                return 1u << modifier;
            }
        }
    }
    return 0;
}

} // namespace

struct X11HotkeyRegistrar::OwnConnection {
    explicit OwnConnection(const QByteArray& name) : display(name) {}

    X11DisplayConnection display;
    EventLoopClock clock;
    X11EventPump pump{display.get(), clock};
};

X11HotkeyRegistrar::X11HotkeyRegistrar(X11EventPump& pump)
{
    follow(pump);
}

X11HotkeyRegistrar::X11HotkeyRegistrar(const QByteArray& displayName)
    : m_own(std::make_unique<OwnConnection>(displayName))
{
    follow(m_own->pump);
}

void X11HotkeyRegistrar::follow(X11EventPump& pump)
{
    m_display = pump.display();
    if (m_display == nullptr) {
        return;
    }
    // Held chords then repeat as presses alone, without a release between them, so repeats can be told
    // from new presses.
    XkbSetDetectableAutoRepeat(m_display, True, nullptr);
    // Raw key releases reach the root window whoever has the keyboard; without XInput 2.1 only the
    // releases of the grabbed key itself are seen.
    m_rawInput = &pump.rawInput();
    m_inputOpcode = m_rawInput->add({XI_RawKeyRelease}) ? m_rawInput->opcode() : 0;
    m_subscription = pump.subscribe([this](const XEvent& event) { handleEvent(event); });
}

X11HotkeyRegistrar::~X11HotkeyRegistrar()
{
    if (m_display == nullptr) {
        return;
    }
    // A shared connection outlives the registrar, and its grabs and event selection with it.
    unregisterAll();
    if (m_inputOpcode != 0) {
        m_rawInput->remove({XI_RawKeyRelease});
    }
    XFlush(m_display);
}

qint32 X11HotkeyRegistrar::installPressHandler(PressHandler handler)
{
    if (m_display == nullptr) {
        return noDisplayStatus;
    }
    m_handler = std::move(handler);
    return 0;
}

void X11HotkeyRegistrar::removePressHandler()
{
    m_handler = nullptr;
}

qint32 X11HotkeyRegistrar::registerHotkey(quint32 id, quint16 macKeyCode, HotkeyModifiers modifiers)
{
    if (m_display == nullptr) {
        return noDisplayStatus;
    }
    if (m_grabs.empty()) {
        m_positions = X11KeyPositions::read(m_display);
    }
    const unsigned char keyCode = m_positions.keycode(macKeyCode);
    if (keyCode == 0) {
        return unknownKeyStatus;
    }

    Grab grab{id, keyCode, xModifiers(modifiers), currentLockStates()};
    const Window root = DefaultRootWindow(m_display);
    X11ErrorTrap trap(m_display);
    for (const unsigned locks : grab.lockStates) {
        XGrabKey(m_display, keyCode, grab.modifiers | locks, root, False, GrabModeAsync, GrabModeAsync);
    }
    const int status = trap.sync();
    if (status != 0) {
        // Some lock states may have been granted before one was refused; a chord is held whole or not at
        // all. Ungrabbing never touches another client's grab.
        ungrab(grab);
        return status;
    }
    m_grabs.push_back(std::move(grab));
    return 0;
}

void X11HotkeyRegistrar::unregisterAll()
{
    if (m_display == nullptr) {
        return;
    }
    X11ErrorTrap trap(m_display);
    for (const Grab& grab : m_grabs) {
        ungrab(grab);
    }
    trap.sync();
    m_grabs.clear();
    m_heldKeyCode = 0;
}

std::vector<unsigned> X11HotkeyRegistrar::currentLockStates() const
{
    const unsigned numLock = numLockMask(m_display);
    if (numLock == 0) {
        return {0, LockMask};
    }
    return {0, LockMask, numLock, LockMask | numLock};
}

void X11HotkeyRegistrar::ungrab(const Grab& grab) const
{
    for (const unsigned locks : grab.lockStates) {
        XUngrabKey(m_display, static_cast<int>(grab.keyCode), grab.modifiers | locks,
                   DefaultRootWindow(m_display));
    }
}

void X11HotkeyRegistrar::handleEvent(const XEvent& event)
{
    if (event.type == GenericEvent && event.xcookie.extension == m_inputOpcode &&
        event.xcookie.evtype == XI_RawKeyRelease) {
        XEvent cookie = event;
        if (XGetEventData(m_display, &cookie.xcookie)) {
            if (static_cast<const XIRawEvent*>(cookie.xcookie.data)->detail == int(m_heldKeyCode)) {
                m_heldKeyCode = 0;
            }
            XFreeEventData(m_display, &cookie.xcookie);
        }
        return;
    }
    if (event.type == KeyRelease && event.xkey.keycode == m_heldKeyCode) {
        m_heldKeyCode = 0;
        return;
    }
    if (event.type != KeyPress) {
        return;
    }
    const unsigned chord = event.xkey.state & chordModifierMask;
    for (const Grab& grab : m_grabs) {
        if (grab.keyCode != event.xkey.keycode || grab.modifiers != chord) {
            continue;
        }
        // WORKAROUND: the passive grab has become an active grab of the whole keyboard that lasts until
        // the key goes up, so the shortcuts this press leads to would come back here instead of reaching
        // the focused window. An auto-repeated press takes it again, so every press gives it back.
        XUngrabKeyboard(m_display, event.xkey.time);
        XFlush(m_display);
        if (event.xkey.keycode == m_heldKeyCode) {
            return;
        }
        m_heldKeyCode = event.xkey.keycode;
        if (m_handler) {
            m_handler(grab.id);
        }
        return;
    }
}
