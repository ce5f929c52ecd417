#include "backend/GuardedTcpServer.h"

#include <QTcpSocket>

GuardedTcpServer::GuardedTcpServer(ConnectionGuard::Limits limits, QObject* parent)
    : QTcpServer(parent), m_limits(limits)
{}

void GuardedTcpServer::incomingConnection(qintptr handle)
{
    auto* socket = new QTcpSocket(this);
    if (!socket->setSocketDescriptor(handle)) {
        delete socket;
        return;
    }
    new ConnectionGuard(*socket, m_limits);
    addPendingConnection(socket);
}
