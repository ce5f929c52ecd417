#include "backend/ConnectionGuard.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QTcpSocket>

ConnectionGuard::ConnectionGuard(QTcpSocket& socket, Limits limits)
    : QObject(&socket), m_socket(socket), m_limits(limits)
{
    m_deadline.setSingleShot(true);
    connect(&m_deadline, &QTimer::timeout, this, [this] { m_socket.abort(); });
    connect(&m_socket, &QTcpSocket::readyRead, this, &ConnectionGuard::inspect);
    m_deadline.start(m_limits.requestTimeout);
}

void ConnectionGuard::inspect()
{
    if (m_refused) {
        // A refused body is read and dropped, so the client, still sending, gets to read the refusal.
        m_received += m_socket.readAll().size();
        if (m_received >= m_expected) {
            m_socket.disconnectFromHost();
        }
        return;
    }
    // The HTTP server reads everything it is offered, so what is buffered now arrived since the last call.
    const qint64 arrived = m_socket.bytesAvailable();
    if (m_received == 0) {
        m_deadline.start(m_limits.requestTimeout);
    }
    m_received += arrived;
    if (m_expected < 0) {
        m_head.append(m_socket.peek(qMin(arrived, m_limits.maxHeaderBytes + 4 - m_head.size())));
        const qsizetype end = m_head.indexOf("\r\n\r\n");
        if (end < 0) {
            if (m_head.size() > m_limits.maxHeaderBytes) {
                refuse("431 Request Header Fields Too Large",
                       QStringLiteral("The request headers are too large."));
            }
            return;
        }
        qint64 length = 0;
        for (const QByteArray& line : m_head.left(end).split('\n')) {
            const qsizetype colon = line.indexOf(':');
            const QByteArray name = line.left(colon).trimmed().toLower();
            const QByteArray value = line.mid(colon + 1).trimmed();
            if (name == "content-length") {
                bool valid = false;
                length = value.toLongLong(&valid);
                if (!valid || length < 0) {
                    length = m_limits.maxBodyBytes + 1;
                }
            } else if (name == "transfer-encoding") {
                refuse("411 Length Required", QStringLiteral("The request must give its Content-Length."));
                return;
            }
        }
        m_expected = end + 4 + length;
        if (length > m_limits.maxBodyBytes) {
            refuse("413 Payload Too Large",
                   QStringLiteral("The request is larger than %1 KiB.").arg(m_limits.maxBodyBytes / 1024));
            return;
        }
    }
    if (m_received >= m_expected) {
        // Complete: the server works on it now. Bytes of a pipelined next request are not counted.
        m_received = 0;
        m_expected = -1;
        m_head.clear();
        m_deadline.start(m_limits.idleTimeout);
    }
}

void ConnectionGuard::refuse(QByteArray statusLine, const QString& text)
{
    m_refused = true;
    m_socket.readAll();
    const QByteArray body = QJsonDocument(QJsonObject{{"error", text}}).toJson(QJsonDocument::Compact);
    m_socket.write("HTTP/1.1 " + statusLine + "\r\nContent-Type: application/json\r\nContent-Length: " +
                   QByteArray::number(body.size()) + "\r\nConnection: close\r\n\r\n" + body);
    // Without a known length there is nothing to wait for; otherwise the deadline still bounds the wait.
    if (m_expected < 0 || m_received >= m_expected) {
        m_socket.disconnectFromHost();
    }
}
