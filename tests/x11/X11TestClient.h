#pragma once

#include "hotkeys/HotkeyModifier.h"
#include "platform/x11/X11DisplayConnection.h"

#include <QString>
#include <QStringList>

// A second client of the test's X server: it types through XTest and grabs keys as a rival program
// would. Keys are named by their keysym names ("Alt_L", "a"); modifiers map as the registrar maps them.
class X11TestClient {
public:
    // The X error a refused grab reports.
    static constexpr int badAccess = 10;

    bool isConnected() const { return static_cast<bool>(m_connection); }
    // Presses the keys in order and releases them in reverse, then waits for the server to take them.
    void type(const QStringList& keys);
    void press(const QString& key);
    void release(const QString& key);
    // Returns 0 or the X error code of the refusal. Lock keys are not grabbed along.
    int grab(const QString& key, HotkeyModifiers modifiers);
    void ungrabAll();
    // The server's own key repeat, which starts delay after a press and repeats every interval.
    void setKeyRepeat(int delayMs, int intervalMs);

private:
    void sendKey(const QString& key, bool down);

    X11DisplayConnection m_connection;
    Display* m_display = m_connection.get();
};
