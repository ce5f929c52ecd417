#pragma once

#include "backend/ConnectionGuard.h"

#include <QTcpServer>

// A listening socket whose every connection is watched by a ConnectionGuard before the HTTP server sees it.
class GuardedTcpServer : public QTcpServer {
    Q_OBJECT
public:
    explicit GuardedTcpServer(ConnectionGuard::Limits limits, QObject* parent = nullptr);

protected:
    void incomingConnection(qintptr handle) override;

private:
    ConnectionGuard::Limits m_limits;
};
