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
    // The HTTP server reads everything it is offered, so what is buffered now arrived since the last call.
    QByteArray chunk = m_socket.peek(m_socket.bytesAvailable());
    if (m_refused) {
        // A refused body is read and dropped, so the client, still sending, gets to read the refusal.
        m_socket.readAll();
        m_received += chunk.size();
        if (m_received >= m_expected) {
            m_socket.disconnectFromHost();
        }
        return;
    }
    // One chunk may end one request and begin the next; each is measured on its own.
    while (!chunk.isEmpty()) {
        if (m_received == 0) {
            m_deadline.start(m_limits.requestTimeout);
        }
        if (m_expected < 0) {
            // Until the header is complete, every byte of the request is in m_head.
            m_head.append(chunk.left(m_limits.maxHeaderBytes + 4 - m_head.size()));
            const qsizetype end = m_head.indexOf("\r\n\r\n");
            if (end < 0) {
                m_received += chunk.size();
                if (m_head.size() > m_limits.maxHeaderBytes) {
                    refuse("431 Request Header Fields Too Large",
                           QStringLiteral("The request headers are too large."));
                }
                return;
            }
            const std::optional<qint64> length = bodyLength(m_head.left(end));
            if (!length) {
                refuse("411 Length Required", QStringLiteral("The request must give its Content-Length."));
                return;
            }
            m_expected = end + 4 + *length;
            if (*length > m_limits.maxBodyBytes) {
                m_received += chunk.size();
                refuse(
                    "413 Payload Too Large",
                    QStringLiteral("The request is larger than %1 KiB.").arg(m_limits.maxBodyBytes / 1024));
                return;
            }
        }
        const qint64 needed = m_expected - m_received;
        if (chunk.size() < needed) {
            m_received += chunk.size();
            return;
        }
        // Complete: the server works on it now.
        chunk.remove(0, needed);
        m_received = 0;
        m_expected = -1;
        m_head.clear();
        m_deadline.start(m_limits.idleTimeout);
    }
}

std::optional<qint64> ConnectionGuard::bodyLength(const QByteArray& header) const
{
    qint64 length = 0;
    for (const QByteArray& line : header.split('\n')) {
        const qsizetype colon = line.indexOf(':');
        const QByteArray name = line.left(colon).trimmed().toLower();
        if (name == "transfer-encoding") {
            return std::nullopt;
        }
        if (name == "content-length") {
            bool valid = false;
            length = line.mid(colon + 1).trimmed().toLongLong(&valid);
            if (!valid || length < 0) {
                length = m_limits.maxBodyBytes + 1;
            }
        }
    }
    return length;
}

void ConnectionGuard::refuse(const QByteArray& statusLine, const QString& text)
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
