#pragma once

#include <QByteArray>
#include <QProcess>

// A session bus of this process's own (dbus-daemon), announced through DBUS_SESSION_BUS_ADDRESS to this
// process and every child started after it; the accessibility bus launcher is started on it on demand, with
// its settings in memory only. AT-SPI and QtDBus connect once per process, so it is started before either is
// used. Killed with this object.
class PrivateSessionBus {
public:
    PrivateSessionBus() = default;
    ~PrivateSessionBus();
    PrivateSessionBus(const PrivateSessionBus&) = delete;
    PrivateSessionBus& operator=(const PrivateSessionBus&) = delete;

    // True once the bus prints its address; otherwise failure() says why.
    bool start();
    const QByteArray& failure() const { return m_failure; }

private:
    QProcess m_daemon;
    QByteArray m_failure;
};
