#include "text/BackendClient.h"

#include "core/AIReplyStyleLibrary.h"
#include "net/StrictJson.h"
#include "platform/LanguageRecognizer.h"
#include "text/BackendClientError.h"
#include "text/BackendRequest.h"
#include "text/BackendTextRules.h"

#include <QNetworkAccessManager>
#include <QRegularExpression>
#include <QUrl>

namespace {

constexpr int maxCharactersPerRequest = 2500;

QString cleanedResult(QString result)
{
    static const QRegularExpression dashes(QStringLiteral("[—–]"));
    return result.replace(dashes, QStringLiteral("-")).trimmed();
}

PromptStyle insistingTranslationStyle(PromptStyle style, const QString& targetLanguage)
{
    style.prompt =
        QStringList{
            QStringLiteral(
                "The previous translation output was identical to the source text. Translate it into ") +
                targetLanguage + QStringLiteral(" now."),
            QStringLiteral("Do not return the source text unchanged unless it is already written in ") +
                targetLanguage + QStringLiteral("."),
            style.prompt,
        }
            .join(QLatin1Char('\n'));
    return style;
}

} // namespace

HttpExchange::Limits BackendClient::defaultLimits()
{
    // 60 s without bytes ends a request; the shared session gives no exchange more than 180 s in all.
    return HttpExchange::Limits{std::chrono::seconds(60), std::chrono::seconds(180),
                                qint64(16) * 1024 * 1024};
}

BackendClient::BackendClient(QNetworkAccessManager& network, BackendCredentials credentials,
                             const QString& baseUrl, const LanguageRecognizer& languageRecognizer,
                             HttpExchange::Limits limits)
    : m_network(&network), m_credentials(std::move(credentials)),
      m_apiUrl(baseUrl + QStringLiteral("/macos/ai")), m_languageRecognizer(languageRecognizer),
      m_limits(limits)
{}

QCoro::Task<QString> BackendClient::send(QString text, BackendAction action, PromptStyle style,
                                         QString targetLanguage, bool retryOnUnchangedTranslation,
                                         QString assistantSessionId, bool assistantKeepContext,
                                         QString userInstruction, QString replyTo, QString keyboardLanguage,
                                         std::optional<bool> forceRewrite,
                                         std::optional<QString> styleIntensity)
{
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty()) {
        throw BackendClientError::emptyInput();
    }
    const QStringList chunks = splitTextForBackend(trimmed, maxCharactersPerRequest);
    if (chunks.size() < 2) {
        co_return co_await sendOne(trimmed, action, style, targetLanguage, retryOnUnchangedTranslation,
                                   assistantSessionId, assistantKeepContext, userInstruction, replyTo,
                                   keyboardLanguage, forceRewrite, styleIntensity);
    }
    // One chunk at a time; the first failure loses the chunks already done.
    QStringList results;
    for (const QString& chunk : chunks) {
        results.append(co_await sendOne(chunk, action, style, targetLanguage, retryOnUnchangedTranslation,
                                        assistantSessionId, assistantKeepContext, userInstruction, replyTo,
                                        keyboardLanguage, forceRewrite, styleIntensity));
    }
    co_return results.join(QStringLiteral("\n\n"));
}

QCoro::Task<QString> BackendClient::sendOne(QString trimmed, BackendAction action, PromptStyle style,
                                            QString targetLanguage, bool retryOnUnchangedTranslation,
                                            QString assistantSessionId, bool assistantKeepContext,
                                            QString userInstruction, QString replyTo,
                                            QString keyboardLanguage, std::optional<bool> forceRewrite,
                                            std::optional<QString> styleIntensity)
{
    const BackendRequest request = BackendRequest::make(
        {trimmed, action, style, targetLanguage, assistantSessionId, assistantKeepContext, userInstruction,
         replyTo, keyboardLanguage, forceRewrite, styleIntensity});
    const QString result = co_await post(request.toJson());

    if (retryOnUnchangedTranslation && action == BackendAction::translate &&
        normalizeTranslationCompare(result) == normalizeTranslationCompare(trimmed)) {
        // Asked once more, firmly; whatever comes back the second time is final.
        co_return co_await send(trimmed, BackendAction::translate,
                                insistingTranslationStyle(style, targetLanguage), targetLanguage, false);
    }
    co_return result;
}

QCoro::Task<QString> BackendClient::post(QByteArray body)
{
    const std::optional<QUrl> url = HttpExchange::parsedHttpUrl(m_apiUrl);
    if (!url) {
        throw BackendClientError::invalidURL();
    }
    QNetworkRequest request(*url);
    request.setHeader(QNetworkRequest::ContentTypeHeader, QByteArrayLiteral("application/json"));
    request.setRawHeader(QByteArrayLiteral("Authorization"), m_credentials.authorizationValue().toUtf8());
    request.setRawHeader(QByteArrayLiteral("x-mivora-device-id"), m_credentials.deviceId().toUtf8());

    const HttpExchange::Response response =
        co_await HttpExchange::send(m_network, request, QByteArrayLiteral("POST"), body, m_limits);
    co_return resultOf(response);
}

QString BackendClient::resultOf(const HttpExchange::Response& response)
{
    // Decoded before the status is looked at: a gateway's HTML error page is a decoding failure, not an
    // HTTP error.
    const QJsonObject answer = HttpExchange::decodeObject(response.body);
    const std::optional<QString> result = StrictJson::optionalString(answer, QLatin1StringView("result"));
    const std::optional<QString> error = StrictJson::optionalString(answer, QLatin1StringView("error"));

    if (response.status < 200 || response.status > 299) {
        throw BackendClientError::server(
            error.value_or(QStringLiteral("Backend returned HTTP %1.").arg(response.status)));
    }
    QString cleaned = cleanedResult(result.value_or(QString()));
    if (cleaned.isEmpty()) {
        throw BackendClientError::emptyResult();
    }
    return cleaned;
}

QCoro::Task<QString> BackendClient::sendReply(QString message, AIReplyStyle style, QString targetLanguage)
{
    const QString language = m_languageRecognizer.dominantLanguage(message);
    const bool isTranslate = style.id == QLatin1StringView("translate");
    const QString instruction = replyUserInstruction(style);
    const PromptStyle clientStyle{style.id, AIReplyStyleLibrary::backendStyleName(style), instruction,
                                  style.hotkey, false};
    const QString replyLanguage = isTranslate ? targetLanguage : QString();
    const QString keyboardLanguage = isTranslate ? targetLanguage : language;

    const QString first = co_await send(message, BackendAction::chatReply, clientStyle, replyLanguage, true,
                                        {}, false, instruction, message, keyboardLanguage);
    if (!looksLikeBadReply(first, message)) {
        co_return first;
    }
    const QString second =
        co_await send(message, BackendAction::chatReply, clientStyle, replyLanguage, true, {}, false,
                      instruction, message, keyboardLanguage, true, QStringLiteral("maximum"));
    if (!looksLikeBadReply(second, message)) {
        co_return second;
    }
    throw BackendClientError::server(
        QStringLiteral("AI Reply returned the original message instead of a reply."));
}
