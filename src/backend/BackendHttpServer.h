#pragma once

#include <QAbstractHttpServer>
#include <QHttpServerResponder>
#include <QPointer>
#include <QTcpSocket>
#include <qcoro/qcorotask.h>

class AiEndpoint;
class ReleaseDescription;

// Routes the two endpoints and answers in JSON. Only method, path, status and duration are logged, never a
// header, a query or a body.
class BackendHttpServer : public QAbstractHttpServer {
    Q_OBJECT
public:
    BackendHttpServer(AiEndpoint& ai, const ReleaseDescription& release, QObject* parent = nullptr);

protected:
    bool handleRequest(const QHttpServerRequest& request, QTcpSocket* socket) override;
    void missingHandler(const QHttpServerRequest& request, QTcpSocket* socket) override;

private:
    QCoro::Task<> answerAi(QHttpServerResponder responder, QPointer<QTcpSocket> socket,
                           QByteArray authorization, QByteArray deviceId, QByteArray body, qint64 startedAt);

    AiEndpoint& m_ai;
    const ReleaseDescription& m_release;
};
