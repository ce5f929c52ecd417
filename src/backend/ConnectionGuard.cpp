#include "backend/ConnectionGuard.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QTcpSocket>

ConnectionGuard::ConnectionGuard(QTcpSocket& socket, Limits limits)
    : QObject(&socket), m_socket(socket), m_limits(limits),
      m_framing(limits.maxHeaderBytes, limits.maxBodyBytes)
{
    m_deadline.setSingleShot(true);
    connect(&m_deadline, &QTimer::timeout, this, [this] { m_socket.abort(); });
    connect(&m_socket, &QTcpSocket::readyRead, this, &ConnectionGuard::inspect);
    m_deadline.start(m_limits.requestTimeout);
}

void ConnectionGuard::inspect()
{
    // The HTTP server reads everything it is offered, so what is buffered now arrived since the last call.
    const QByteArray chunk = m_socket.peek(m_socket.bytesAvailable());
    if (m_framing.refused()) {
        // A refused body is read and dropped, so the client, still sending, gets to read the refusal.
        m_socket.readAll();
        m_framing.take(chunk);
        if (m_framing.refusedRequestOver()) {
            m_socket.disconnectFromHost();
        }
        return;
    }
    const RequestFraming::Step step = m_framing.take(chunk);
    if (step.enteredPhase) {
        m_deadline.start(*step.enteredPhase == RequestFraming::Phase::inRequest ? m_limits.requestTimeout
                                                                                : m_limits.idleTimeout);
    }
    if (step.refusal) {
        refuse(*step.refusal);
    }
}

void ConnectionGuard::refuse(const RequestFraming::Refusal& refusal)
{
    m_socket.readAll();
    const QByteArray body =
        QJsonDocument(QJsonObject{{"error", refusal.text}}).toJson(QJsonDocument::Compact);
    m_socket.write("HTTP/1.1 " + refusal.statusLine +
                   "\r\nContent-Type: application/json\r\nContent-Length: " +
                   QByteArray::number(body.size()) + "\r\nConnection: close\r\n\r\n" + body);
    // Without a known length there is nothing to wait for; otherwise the deadline still bounds the wait.
    if (m_framing.refusedRequestOver()) {
        m_socket.disconnectFromHost();
    }
}
