#include "X11TestClient.h"

#include "EventLoopWait.h"
#include "hotkeys/ParsedHotkey.h"
#include "platform/x11/X11ErrorTrap.h"
#include "platform/x11/X11KeyPositions.h"

#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>

void X11TestClient::type(const QStringList& keys)
{
    for (const QString& key : keys) {
        sendKey(key, true);
    }
    for (auto it = keys.crbegin(); it != keys.crend(); ++it) {
        sendKey(*it, false);
    }
    XSync(m_display, False);
}

void X11TestClient::typeAt(const QStringList& modifiers, quint16 macKeyCode)
{
    for (const QString& key : modifiers) {
        sendKey(key, true);
    }
    const unsigned char keycode = X11KeyPositions::read(m_display).keycode(macKeyCode);
    XTestFakeKeyEvent(m_display, keycode, True, CurrentTime);
    XTestFakeKeyEvent(m_display, keycode, False, CurrentTime);
    for (auto it = modifiers.crbegin(); it != modifiers.crend(); ++it) {
        sendKey(*it, false);
    }
    XSync(m_display, False);
}

void X11TestClient::press(const QString& key)
{
    sendKey(key, true);
    XSync(m_display, False);
}

void X11TestClient::release(const QString& key)
{
    sendKey(key, false);
    XSync(m_display, False);
}

int X11TestClient::grab(const QString& key, HotkeyModifiers modifiers)
{
    unsigned mask = 0;
    mask |= modifiers.testFlag(HotkeyModifier::Shift) ? ShiftMask : 0;
    mask |= modifiers.testFlag(HotkeyModifier::Control) ? ControlMask : 0;
    mask |= modifiers.testFlag(HotkeyModifier::Option) ? Mod1Mask : 0;
    mask |= modifiers.testFlag(HotkeyModifier::Command) ? Mod4Mask : 0;
    X11ErrorTrap trap(m_display);
    XGrabKey(m_display, keyCode(key), mask, DefaultRootWindow(m_display), False, GrabModeAsync,
             GrabModeAsync);
    return trap.sync();
}

void X11TestClient::ungrabAll()
{
    XUngrabKey(m_display, AnyKey, AnyModifier, DefaultRootWindow(m_display));
    XSync(m_display, False);
}

bool X11TestClient::isDown(const QString& key) const
{
    char keys[32] = {};
    XQueryKeymap(m_display, keys);
    const unsigned char code = keyCode(key);
    return code != 0 && (keys[code / 8] & (1 << (code % 8))) != 0;
}

void X11TestClient::setKeyRepeat(int delayMs, int intervalMs)
{
    XkbSetAutoRepeatRate(m_display, XkbUseCoreKbd, static_cast<unsigned>(delayMs),
                         static_cast<unsigned>(intervalMs));
    XSync(m_display, False);
}

bool X11TestClient::useKeymap(const QString& layouts)
{
    if (!runTool(QStringLiteral("setxkbmap"), {QStringLiteral("-layout"), layouts})) {
        return false;
    }
    XkbLockGroup(m_display, XkbUseCoreKbd, 0);
    XSync(m_display, False);
    return true;
}

void X11TestClient::sendKey(const QString& key, bool down)
{
    XTestFakeKeyEvent(m_display, keyCode(key), down ? True : False, CurrentTime);
}

unsigned char X11TestClient::keyCode(const QString& key) const
{
    const KeyCode byLabel = XKeysymToKeycode(m_display, XStringToKeysym(key.toLatin1().constData()));
    if (byLabel != 0) {
        return byLabel;
    }
    // A keymap without Latin letters still has the keys; the person presses the one labelled so.
    const auto macKeyCode = ParsedHotkey::keyCodes().constFind(key.toUpper());
    return macKeyCode == ParsedHotkey::keyCodes().cend()
               ? 0
               : X11KeyPositions::read(m_display).keycode(*macKeyCode);
}
