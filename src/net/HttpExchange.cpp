#include "net/HttpExchange.h"

#include "net/NetworkError.h"
#include "net/ResponseDecodingError.h"

#include <QJsonDocument>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QStringDecoder>
#include <QTimer>
#include <memory>
#include <qcoro/qcoronetworkreply.h>

namespace {

struct DeleteLater {
    void operator()(QObject* object) const { object->deleteLater(); }
};

enum class AbortReason { none, overallTimeout, tooLarge };

QString timedOutText()
{
    return QStringLiteral("The request timed out.");
}

} // namespace

QCoro::Task<HttpExchange::Response> HttpExchange::send(QPointer<QNetworkAccessManager> network,
                                                       QNetworkRequest request, QByteArray verb,
                                                       QByteArray body, Limits limits)
{
    if (!network) {
        throw NetworkError(QStringLiteral("The network connection is not available."));
    }
    request.setTransferTimeout(static_cast<int>(limits.transferTimeout.count()));
    std::unique_ptr<QNetworkReply, DeleteLater> reply(network->sendCustomRequest(request, verb, body));
    QNetworkReply* const raw = reply.get();

    auto abortReason = std::make_shared<AbortReason>(AbortReason::none);
    auto* guard = new QTimer(raw);
    guard->setSingleShot(true);
    QObject::connect(guard, &QTimer::timeout, raw, [raw, abortReason] {
        *abortReason = AbortReason::overallTimeout;
        raw->abort();
    });
    guard->start(limits.overallTimeout);
    QObject::connect(raw, &QNetworkReply::downloadProgress, raw,
                     [raw, abortReason, max = limits.maxResponseBytes](qint64 received, qint64) {
                         if (received > max && *abortReason == AbortReason::none) {
                             *abortReason = AbortReason::tooLarge;
                             raw->abort();
                         }
                     });

    co_await raw;
    guard->stop();

    switch (*abortReason) {
    case AbortReason::overallTimeout:
        throw NetworkError(timedOutText());
    case AbortReason::tooLarge:
        throw NetworkError(QStringLiteral("The server's answer is too large."));
    case AbortReason::none:
        break;
    }
    const QNetworkReply::NetworkError error = raw->error();
    if (error == QNetworkReply::OperationCanceledError || error == QNetworkReply::TimeoutError) {
        // The only other abort is the transfer time-out of the request itself.
        throw NetworkError(timedOutText());
    }
    const QVariant status = raw->attribute(QNetworkRequest::HttpStatusCodeAttribute);
    if (!status.isValid()) {
        throw NetworkError(raw->errorString());
    }
    // An answer cut off after its headers keeps its status; the body then fails to decode.
    co_return Response{status.toInt(), raw->readAll()};
}

QJsonObject HttpExchange::decodeObject(const QByteArray& body)
{
    QStringDecoder utf8(QStringDecoder::Utf8);
    // The JSON parser lets some broken sequences through; the answer must be UTF-8 as a whole.
    [[maybe_unused]] const QString text = utf8.decode(body);
    if (utf8.hasError()) {
        throw ResponseDecodingError();
    }
    QJsonParseError parseError{};
    const QJsonDocument document = QJsonDocument::fromJson(body, &parseError);
    if (parseError.error != QJsonParseError::NoError || !document.isObject()) {
        throw ResponseDecodingError();
    }
    return document.object();
}

std::optional<QUrl> HttpExchange::parsedHttpUrl(const QString& text)
{
    const QUrl url(text, QUrl::StrictMode);
    const QString scheme = url.scheme();
    if (!url.isValid() || url.host().isEmpty() ||
        (scheme != QLatin1StringView("http") && scheme != QLatin1StringView("https"))) {
        return std::nullopt;
    }
    return url;
}
