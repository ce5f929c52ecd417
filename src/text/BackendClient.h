#pragma once

#include "core/AIReplyStyle.h"
#include "core/BackendAction.h"
#include "core/PromptStyle.h"
#include "net/HttpExchange.h"
#include "text/BackendCredentials.h"

#include <QNetworkAccessManager>
#include <QPointer>
#include <QString>
#include <optional>
#include <qcoro/qcorotask.h>

class LanguageRecognizer;

// The one door to the AI backend: every rewrite, translation, emoji pass, assistant question and chat reply
// is one JSON POST to "<base URL>/macos/ai". Several clients share one QNetworkAccessManager. Calls are
// independent and may overlap; within one call chunks and retries go strictly one after another.
// The client must outlive its calls. Failures throw BackendClientError, NetworkError or
// ResponseDecodingError, all MivoraError with the text the user sees.
class BackendClient {
public:
    // Idle time-out of one request, and the overall limit of one exchange.
    static HttpExchange::Limits defaultLimits();

    BackendClient(QNetworkAccessManager& network, BackendCredentials credentials, const QString& baseUrl,
                  const LanguageRecognizer& languageRecognizer,
                  HttpExchange::Limits limits = defaultLimits());

    // The endpoint, fixed at construction.
    const QString& apiUrl() const { return m_apiUrl; }

    // GUI thread; suspends while the backend works. Returns the cleaned answer. Texts longer than 2500
    // characters go as several requests whose answers are joined by a blank line.
    QCoro::Task<QString> send(QString text, BackendAction action, PromptStyle style, QString targetLanguage,
                              bool retryOnUnchangedTranslation, QString assistantSessionId = {},
                              bool assistantKeepContext = false, QString userInstruction = {},
                              QString replyTo = {}, QString keyboardLanguage = {},
                              std::optional<bool> forceRewrite = std::nullopt,
                              std::optional<QString> styleIntensity = std::nullopt);

    // GUI thread; a reply to a chat message in the given style, asked twice at most when the first answer
    // only echoes the message.
    QCoro::Task<QString> sendReply(QString message, AIReplyStyle style, QString targetLanguage);

    // The cleaned result of one backend answer. Throws ResponseDecodingError for a body that is not the
    // expected JSON object, BackendClientError for an HTTP error status or an empty result.
    static QString resultOf(const HttpExchange::Response& response);

private:
    QCoro::Task<QString> sendOne(QString trimmed, BackendAction action, PromptStyle style,
                                 QString targetLanguage, bool retryOnUnchangedTranslation,
                                 QString assistantSessionId, bool assistantKeepContext,
                                 QString userInstruction, QString replyTo, QString keyboardLanguage,
                                 std::optional<bool> forceRewrite, std::optional<QString> styleIntensity);
    QCoro::Task<QString> post(QByteArray body);

    QPointer<QNetworkAccessManager> m_network;
    BackendCredentials m_credentials;
    QString m_apiUrl;
    const LanguageRecognizer& m_languageRecognizer;
    HttpExchange::Limits m_limits;
};
