#include "backend/BackendHttpServer.h"

#include "backend/AiEndpoint.h"
#include "backend/ReleaseDescription.h"

#include <QDateTime>
#include <QHttpServerRequest>
#include <QJsonDocument>
#include <QUrlQuery>

namespace {

const QByteArray aiPath = QByteArrayLiteral("/macos/ai");
const QByteArray versionPath = QByteArrayLiteral("/macos/app/version");

void logExchange(const QByteArray& method, const QByteArray& path, int status, qint64 startedAt)
{
    qInfo("%s %s %d %lldms", method.constData(), path.constData(), status,
          QDateTime::currentMSecsSinceEpoch() - startedAt);
}

QByteArray methodName(QHttpServerRequest::Method method)
{
    switch (method) {
    case QHttpServerRequest::Method::Get:
        return "GET";
    case QHttpServerRequest::Method::Post:
        return "POST";
    case QHttpServerRequest::Method::Head:
        return "HEAD";
    default:
        return "OTHER";
    }
}

void writeJson(QHttpServerResponder& responder, int status, const QJsonObject& body)
{
    responder.write(QJsonDocument(body), static_cast<QHttpServerResponder::StatusCode>(status));
}

} // namespace

BackendHttpServer::BackendHttpServer(AiEndpoint& ai, const ReleaseDescription& release, QObject* parent)
    : QAbstractHttpServer(parent), m_ai(ai), m_release(release)
{}

bool BackendHttpServer::handleRequest(const QHttpServerRequest& request, QTcpSocket* socket)
{
    const qint64 startedAt = QDateTime::currentMSecsSinceEpoch();
    const QByteArray path = request.url().path().toUtf8();
    const QByteArray method = methodName(request.method());
    if (path != aiPath && path != versionPath) {
        return false;
    }
    QHttpServerResponder responder = makeResponder(request, socket);
    const bool isAi = path == aiPath;
    if (method != (isAi ? "POST" : "GET")) {
        writeJson(responder, 405, QJsonObject{{"error", QStringLiteral("Method not allowed.")}});
        logExchange(method, path, 405, startedAt);
        return true;
    }
    if (isAi) {
        answerAi(std::move(responder), socket, request.value("authorization"),
                 request.value("x-mivora-device-id"), request.body(), startedAt);
        return true;
    }
    const ReleaseDescription::Answer answer =
        m_release.answer(request.query().queryItemValue(QStringLiteral("current_build")));
    writeJson(responder, answer.status, answer.body);
    logExchange(method, path, answer.status, startedAt);
    return true;
}

void BackendHttpServer::missingHandler(const QHttpServerRequest& request, QTcpSocket* socket)
{
    QHttpServerResponder responder = makeResponder(request, socket);
    writeJson(responder, 404, QJsonObject{{"error", QStringLiteral("Not found.")}});
    logExchange(methodName(request.method()), request.url().path().toUtf8(), 404,
                QDateTime::currentMSecsSinceEpoch());
}

QCoro::Task<> BackendHttpServer::answerAi(QHttpServerResponder responder, QPointer<QTcpSocket> socket,
                                          QByteArray authorization, QByteArray deviceId, QByteArray body,
                                          qint64 startedAt)
{
    const AiEndpoint::Answer answer =
        co_await m_ai.handle(std::move(authorization), std::move(deviceId), std::move(body));
    // The client may have hung up while the model worked; its socket is gone then.
    if (socket && socket->state() == QAbstractSocket::ConnectedState) {
        writeJson(responder, answer.status, answer.body);
    }
    logExchange("POST", aiPath, socket ? answer.status : 499, startedAt);
}
