#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QNetworkRequest>
#include <QPointer>
#include <QUrl>
#include <chrono>
#include <optional>
#include <qcoro/qcorotask.h>

class QNetworkAccessManager;

// One HTTP request and its whole answer. Time-outs are network behaviour and run on Qt's own timers.
class HttpExchange {
public:
    struct Limits {
        // Longest wait for the next bytes of the answer.
        std::chrono::milliseconds transferTimeout{60'000};
        // Longest time the whole exchange may take, however steadily the bytes arrive.
        std::chrono::milliseconds overallTimeout{180'000};
        // Answers are read whole; a bigger one is dropped rather than held in memory.
        qint64 maxResponseBytes = qint64(16) * 1024 * 1024;
    };

    struct Response {
        // 0 when the answer carried no HTTP status.
        int status = 0;
        QByteArray body;
    };

    // GUI thread; suspends until the answer is complete. Throws NetworkError when no HTTP answer came back
    // (refused, unreachable, timed out, too large); an HTTP error status is a normal Response.
    static QCoro::Task<Response> send(QPointer<QNetworkAccessManager> network, QNetworkRequest request,
                                      QByteArray verb, QByteArray body, Limits limits);

    // An absolute http or https URL with a host, or none.
    static std::optional<QUrl> parsedHttpUrl(const QString& text);

    // The body as a JSON object. Throws ResponseDecodingError for anything else, invalid UTF-8 included.
    static QJsonObject decodeObject(const QByteArray& body);
};
