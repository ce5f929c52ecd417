#pragma once

#include "ResidentAppProcess.h"

#include <QProcess>
#include <QString>
#include <QStringList>
#include <chrono>

// Another maker's program that a benchmark compares the app with, started with a private home like the
// resident app's so that it, too, starts as on a first login. Asked to end when this object goes.
class PeerProcess {
public:
    explicit PeerProcess(const QString& program);
    ~PeerProcess();
    PeerProcess(const PeerProcess&) = delete;
    PeerProcess& operator=(const PeerProcess&) = delete;

    // Starts it; true once the process runs, otherwise says on the standard output how to install it.
    bool start();
    qint64 processId() const { return m_process.processId(); }
    // Runs the program once more in the same home, as a client of the running one; true when that exited
    // with 0 within the guard.
    bool command(const QStringList& arguments, std::chrono::milliseconds guard);

private:
    QString m_program;
    // Only its private directories are used: the program here is not the resident app.
    ResidentAppProcess m_home;
    QProcess m_process;
};
