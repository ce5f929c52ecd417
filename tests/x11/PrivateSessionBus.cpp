#include "PrivateSessionBus.h"

#include "EventLoopWait.h"

#include <QStandardPaths>

using namespace std::chrono_literals;

PrivateSessionBus::~PrivateSessionBus()
{
    if (m_daemon.state() != QProcess::NotRunning) {
        m_daemon.kill();
        m_daemon.waitForFinished(2000);
    }
}

bool PrivateSessionBus::start()
{
    if (QStandardPaths::findExecutable(QStringLiteral("dbus-daemon")).isEmpty()) {
        m_failure = "dbus-daemon is not installed";
        return false;
    }
    // The accessibility launcher keeps its switch in the desktop settings (dconf under GNOME), which
    // would outlive the test in the user's own settings; services started by this bus keep them in memory.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("GSETTINGS_BACKEND"), QStringLiteral("memory"));
    m_daemon.setProcessEnvironment(environment);
    m_daemon.start(QStringLiteral("dbus-daemon"), {QStringLiteral("--session"), QStringLiteral("--nofork"),
                                                   QStringLiteral("--print-address=1")});
    QByteArray address;
    spinUntil(
        [&] {
            address += m_daemon.readAllStandardOutput();
            return address.contains('\n') || m_daemon.state() == QProcess::NotRunning;
        },
        10s);
    address = address.trimmed();
    if (address.isEmpty()) {
        m_failure = "dbus-daemon printed no address: " + m_daemon.readAllStandardError();
        return false;
    }
    qputenv("DBUS_SESSION_BUS_ADDRESS", address);
    qunsetenv("AT_SPI_BUS_ADDRESS");
    return true;
}
