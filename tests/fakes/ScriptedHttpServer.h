#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QObject>
#include <QString>
#include <QTcpServer>
#include <QUrl>
#include <chrono>

class QTcpSocket;

// An HTTP/1.1 server on 127.0.0.1 for tests of the network clients. It records every request and answers
// each with the next scripted reply; once they are used up the last one repeats, and before any is scripted
// the answer is 200 with {"result":"ok"}. One request per connection.
class ScriptedHttpServer : public QObject {
    Q_OBJECT
public:
    struct Request {
        QByteArray method;
        QString path;
        // The raw query string, without "?".
        QByteArray query;
        // Header names in lower case.
        QHash<QByteArray, QByteArray> headers;
        QByteArray body;
    };

    struct Reply {
        int status = 200;
        QByteArray body;
        QByteArray contentType = "application/json";
        // Wait before sending anything at all.
        std::chrono::milliseconds delay{0};
        // Send only this many bytes of the body, then close, while announcing the full length.
        qsizetype truncateAt = -1;

        static Reply json(int status, const QByteArray& body) { return Reply{status, body}; }
        static Reply html(int status, const QByteArray& body) { return Reply{status, body, "text/html"}; }
    };

    explicit ScriptedHttpServer(QObject* parent = nullptr);

    // The base URL, "http://127.0.0.1:<port>".
    QString baseUrl() const;
    void enqueue(Reply reply);
    const QList<Request>& requests() const { return m_requests; }

signals:
    // A request was read whole; its reply follows after the reply's delay.
    void requestReceived();
    // The reply to a request was handed to the connection.
    void replied();

private:
    void accept();
    void readFrom(QTcpSocket* socket);
    void answer(QTcpSocket* socket);

    QTcpServer m_server;
    QList<Reply> m_replies;
    Reply m_lastReply{200, R"({"result":"ok"})"};
    QList<Request> m_requests;
    QHash<QTcpSocket*, QByteArray> m_buffers;
};
