#pragma once

#include "hotkeys/HotkeyModifier.h"
#include "platform/x11/X11DisplayConnection.h"

#include <QString>
#include <QStringList>

// A second client of the test's X server: it types through XTest and grabs keys as a rival program
// would. Keys are named by their keysym names ("Alt_L", "a"), or by the US label of a key the keymap gives
// no such keysym (an "a" under a Cyrillic-only keymap); modifiers map as the registrar maps them.
class X11TestClient {
public:
    // The X error a refused grab reports.
    static constexpr int badAccess = 10;

    bool isConnected() const { return static_cast<bool>(m_connection); }
    // Presses the keys in order and releases them in reverse, then waits for the server to take them.
    void type(const QStringList& keys);
    // The same with the last key given by its position (a macOS virtual key code), whatever it types.
    void typeAt(const QStringList& modifiers, quint16 macKeyCode);
    void press(const QString& key);
    void release(const QString& key);
    // Returns 0 or the X error code of the refusal. Lock keys are not grabbed along.
    int grab(const QString& key, HotkeyModifiers modifiers);
    void ungrabAll();
    // Whether the server has the key down now, whoever pressed it.
    bool isDown(const QString& key) const;
    Display* display() const { return m_display; }
    // The server's own key repeat, which starts delay after a press and repeats every interval.
    void setKeyRepeat(int delayMs, int intervalMs);
    // Gives the server's keyboard these layouts ("us,ru") with the first one active, whatever group an
    // earlier test or layout switch left locked (setxkbmap keeps it). False when setxkbmap failed.
    bool useKeymap(const QString& layouts);

private:
    void sendKey(const QString& key, bool down);
    unsigned char keyCode(const QString& key) const;

    X11DisplayConnection m_connection;
    Display* m_display = m_connection.get();
};
