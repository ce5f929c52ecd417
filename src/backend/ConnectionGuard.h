#pragma once

#include "backend/RequestFraming.h"

#include <QByteArray>
#include <QObject>
#include <QTimer>
#include <chrono>

class QTcpSocket;

// Watches one connection before the HTTP server reads from it: a request must arrive whole within a short
// time and within the size limits, and an idle connection is closed. An oversized body is refused with 413
// without being read into memory.
class ConnectionGuard : public QObject {
    Q_OBJECT
public:
    struct Limits {
        qint64 maxHeaderBytes = qint64(16) * 1024;
        qint64 maxBodyBytes = qint64(256) * 1024;
        // From the first byte of a request to its last.
        std::chrono::milliseconds requestTimeout{10'000};
        // A connection without a request in progress; longer than the slowest model answer.
        std::chrono::milliseconds idleTimeout{75'000};
    };

    // Becomes a child of the socket; must be made before anyone else connects to its readyRead.
    ConnectionGuard(QTcpSocket& socket, Limits limits);

private:
    void inspect();
    void refuse(const RequestFraming::Refusal& refusal);

    QTcpSocket& m_socket;
    Limits m_limits;
    QTimer m_deadline;
    RequestFraming m_framing;
};
