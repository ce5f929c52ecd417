#include "shell/InstanceChannel.h"

#include <QLocalServer>
#include <QLocalSocket>

namespace {
const QByteArray showRequest = QByteArrayLiteral("show\n");
const QByteArray acknowledgement = QByteArrayLiteral("ok\n");
} // namespace

InstanceChannel::InstanceChannel(QString name, QObject* parent) : QObject(parent), m_name(std::move(name)) {}

InstanceChannel::~InstanceChannel() = default;

bool InstanceChannel::listen()
{
    m_server = new QLocalServer(this);
    m_server->setSocketOptions(QLocalServer::UserAccessOption);
    // The instance lock is held by now, so a socket file left here belongs to a process that is gone.
    QLocalServer::removeServer(m_name);
    if (!m_server->listen(m_name)) {
        return false;
    }
    connect(m_server, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket* peer = m_server->nextPendingConnection()) {
            connect(peer, &QLocalSocket::disconnected, peer, &QObject::deleteLater);
            connect(peer, &QLocalSocket::readyRead, this, [this, peer] {
                if (!peer->canReadLine()) {
                    return;
                }
                if (peer->readLine() == showRequest) {
                    peer->write(acknowledgement);
                    peer->flush();
                    emit showRequested();
                }
                peer->disconnectFromServer();
            });
        }
    });
    return true;
}

bool InstanceChannel::askRunningInstanceToShow(int timeoutMs) const
{
    QLocalSocket socket;
    socket.connectToServer(m_name);
    if (!socket.waitForConnected(timeoutMs)) {
        return false;
    }
    socket.write(showRequest);
    if (!socket.waitForBytesWritten(timeoutMs)) {
        return false;
    }
    while (!socket.canReadLine()) {
        if (!socket.waitForReadyRead(timeoutMs)) {
            return false;
        }
    }
    return socket.readLine() == acknowledgement;
}
