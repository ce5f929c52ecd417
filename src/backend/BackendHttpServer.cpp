#include "backend/BackendHttpServer.h"

#include "backend/AiEndpoint.h"
#include "backend/ReleaseDescription.h"
#include "core/Clock.h"

#include <QHttpServerRequest>
#include <QJsonDocument>
#include <QUrlQuery>

namespace {

const QByteArray aiPath = QByteArrayLiteral("/macos/ai");
const QByteArray versionPath = QByteArrayLiteral("/macos/app/version");

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

BackendHttpServer::BackendHttpServer(const Clock& clock, AiEndpoint& ai, const ReleaseDescription& release,
                                     QObject* parent)
    : QAbstractHttpServer(parent), m_clock(clock), m_ai(ai), m_release(release)
{}

void BackendHttpServer::log(const QByteArray& method, const QByteArray& path, int status,
                            std::chrono::milliseconds startedAt) const
{
    qInfo("%s %s %d %lldms", method.constData(), path.constData(), status,
          static_cast<long long>((m_clock.elapsed() - startedAt).count()));
}

bool BackendHttpServer::handleRequest(const QHttpServerRequest& request, QTcpSocket* socket)
{
    const std::chrono::milliseconds startedAt = m_clock.elapsed();
    const QByteArray path = request.url().path().toUtf8();
    const QByteArray method = methodName(request.method());
    if (path != aiPath && path != versionPath) {
        return false;
    }
    QHttpServerResponder responder = makeResponder(request, socket);
    const bool isAi = path == aiPath;
    if (method != (isAi ? "POST" : "GET")) {
        writeJson(responder, 405, QJsonObject{{"error", QStringLiteral("Method not allowed.")}});
        log(method, path, 405, startedAt);
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
    log(method, path, answer.status, startedAt);
    return true;
}

void BackendHttpServer::missingHandler(const QHttpServerRequest& request, QTcpSocket* socket)
{
    QHttpServerResponder responder = makeResponder(request, socket);
    writeJson(responder, 404, QJsonObject{{"error", QStringLiteral("Not found.")}});
    // Encoded and cut short, so a crafted path cannot forge or flood log lines.
    log(methodName(request.method()), request.url().path(QUrl::FullyEncoded).left(200).toLatin1(), 404,
        m_clock.elapsed());
}

QCoro::Task<> BackendHttpServer::answerAi(QHttpServerResponder responder, QPointer<QTcpSocket> socket,
                                          QByteArray authorization, QByteArray deviceId, QByteArray body,
                                          std::chrono::milliseconds startedAt)
{
    const AiEndpoint::Answer answer =
        co_await m_ai.handle(std::move(authorization), std::move(deviceId), std::move(body));
    // The client may have hung up while the model worked; its socket is gone then.
    if (socket && socket->state() == QAbstractSocket::ConnectedState) {
        writeJson(responder, answer.status, answer.body);
    }
    log("POST", aiPath, socket ? answer.status : 499, startedAt);
}
