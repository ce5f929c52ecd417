#pragma once

#include <QAbstractHttpServer>
#include <QHttpServerResponder>
#include <QPointer>
#include <QTcpSocket>
#include <chrono>
#include <qcoro/qcorotask.h>

class AiEndpoint;
class Clock;
class ReleaseDescription;

// Routes the two endpoints and answers in JSON. Only method, path, status and duration are logged, never a
// header, a query or a body.
class BackendHttpServer : public QAbstractHttpServer {
    Q_OBJECT
public:
    BackendHttpServer(const Clock& clock, AiEndpoint& ai, const ReleaseDescription& release,
                      QObject* parent = nullptr);

protected:
    bool handleRequest(const QHttpServerRequest& request, QTcpSocket* socket) override;
    void missingHandler(const QHttpServerRequest& request, QTcpSocket* socket) override;

private:
    QCoro::Task<> answerAi(QHttpServerResponder responder, QPointer<QTcpSocket> socket,
                           QByteArray authorization, QByteArray deviceId, QByteArray body,
                           std::chrono::milliseconds startedAt);
    void log(const QByteArray& method, const QByteArray& path, int status,
             std::chrono::milliseconds startedAt) const;

    const Clock& m_clock;
    AiEndpoint& m_ai;
    const ReleaseDescription& m_release;
};
