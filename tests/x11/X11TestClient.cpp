#include "X11TestClient.h"

#include "platform/x11/X11ErrorTrap.h"

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
    const KeyCode keyCode = XKeysymToKeycode(m_display, XStringToKeysym(key.toLatin1().constData()));
    X11ErrorTrap trap(m_display);
    XGrabKey(m_display, keyCode, mask, DefaultRootWindow(m_display), False, GrabModeAsync, GrabModeAsync);
    return trap.sync();
}

void X11TestClient::ungrabAll()
{
    XUngrabKey(m_display, AnyKey, AnyModifier, DefaultRootWindow(m_display));
    XSync(m_display, False);
}

void X11TestClient::setKeyRepeat(int delayMs, int intervalMs)
{
    XkbSetAutoRepeatRate(m_display, XkbUseCoreKbd, static_cast<unsigned>(delayMs),
                         static_cast<unsigned>(intervalMs));
    XSync(m_display, False);
}

void X11TestClient::sendKey(const QString& key, bool down)
{
    const KeyCode keyCode = XKeysymToKeycode(m_display, XStringToKeysym(key.toLatin1().constData()));
    XTestFakeKeyEvent(m_display, keyCode, down ? True : False, CurrentTime);
}
