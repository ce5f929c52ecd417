#include "ScriptedHttpServer.h"

#include <QTcpSocket>
#include <QTimer>

ScriptedHttpServer::ScriptedHttpServer(QObject* parent) : QObject(parent)
{
    connect(&m_server, &QTcpServer::newConnection, this, &ScriptedHttpServer::accept);
    m_server.listen(QHostAddress::LocalHost);
}

QString ScriptedHttpServer::baseUrl() const
{
    return QStringLiteral("http://127.0.0.1:%1").arg(m_server.serverPort());
}

void ScriptedHttpServer::enqueue(Reply reply)
{
    m_replies.append(std::move(reply));
}

void ScriptedHttpServer::accept()
{
    while (QTcpSocket* socket = m_server.nextPendingConnection()) {
        socket->setParent(this);
        connect(socket, &QTcpSocket::readyRead, this, [this, socket] { readFrom(socket); });
        connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QObject::destroyed, this, [this, socket] { m_buffers.remove(socket); });
    }
}

void ScriptedHttpServer::readFrom(QTcpSocket* socket)
{
    QByteArray& buffer = m_buffers[socket];
    buffer += socket->readAll();
    const qsizetype headerEnd = buffer.indexOf("\r\n\r\n");
    if (headerEnd < 0) {
        return;
    }
    const QList<QByteArray> lines = buffer.left(headerEnd).split('\n');
    Request request;
    const QList<QByteArray> requestLine = lines.value(0).trimmed().split(' ');
    request.method = requestLine.value(0);
    const QByteArray target = requestLine.value(1);
    const qsizetype questionMark = target.indexOf('?');
    request.path = QString::fromUtf8(questionMark < 0 ? target : target.left(questionMark));
    request.query = questionMark < 0 ? QByteArray() : target.mid(questionMark + 1);
    for (qsizetype i = 1; i < lines.size(); ++i) {
        const qsizetype colon = lines[i].indexOf(':');
        if (colon > 0) {
            request.headers.insert(lines[i].left(colon).trimmed().toLower(),
                                   lines[i].mid(colon + 1).trimmed());
        }
    }
    const qsizetype length = request.headers.value("content-length", "0").toLongLong();
    if (buffer.size() - (headerEnd + 4) < length) {
        return;
    }
    request.body = buffer.mid(headerEnd + 4, length);
    m_requests.append(request);
    emit requestReceived();
    m_buffers.remove(socket);
    disconnect(socket, &QTcpSocket::readyRead, this, nullptr);
    answer(socket);
}

void ScriptedHttpServer::answer(QTcpSocket* socket)
{
    if (!m_replies.isEmpty()) {
        m_lastReply = m_replies.takeFirst();
    }
    const Reply reply = m_lastReply;
    QTimer::singleShot(reply.delay, socket, [this, socket, reply] {
        const QByteArray body = reply.truncateAt < 0 ? reply.body : reply.body.left(reply.truncateAt);
        QByteArray head = "HTTP/1.1 " + QByteArray::number(reply.status) + " Scripted\r\n";
        head += "Content-Type: " + reply.contentType + "\r\n";
        head += "Content-Length: " + QByteArray::number(reply.body.size()) + "\r\n";
        head += "Connection: close\r\n\r\n";
        socket->write(head + body);
        socket->disconnectFromHost();
        emit replied();
    });
}
