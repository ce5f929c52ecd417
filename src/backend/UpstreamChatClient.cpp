#include "backend/UpstreamChatClient.h"

#include "backend/BackendFailure.h"
#include "net/NetworkError.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkAccessManager>
#include <QRegularExpression>

namespace {

QString upstreamMessage(const QByteArray& body)
{
    const QJsonObject object = QJsonDocument::fromJson(body).object();
    const QJsonValue error = object.value(QLatin1StringView("error"));
    return error.isObject() ? error.toObject().value(QLatin1StringView("message")).toString()
                            : error.toString();
}

BackendFailure failureFor(int status, const QByteArray& body, const QString& model)
{
    switch (status) {
    case 401:
    case 403:
        return {502, QStringLiteral("The AI model server refused the backend's API key.")};
    case 404:
        return {502,
                QStringLiteral("The AI model server does not have the model \"%1\" (or its URL is wrong).")
                    .arg(model)};
    case 429:
        return {429, QStringLiteral("The AI model server is limiting requests. Try again in a minute.")};
    default:
        break;
    }
    const QString detail = upstreamMessage(body).left(200);
    return {502, detail.isEmpty() ? QStringLiteral("The AI model server failed with HTTP %1.").arg(status)
                                  : QStringLiteral("The AI model server failed: %1").arg(detail)};
}

} // namespace

UpstreamChatClient::UpstreamChatClient(QNetworkAccessManager& network, Settings settings)
    : m_network(&network), m_settings(std::move(settings))
{}

QCoro::Task<QString> UpstreamChatClient::complete(QList<ChatMessage> messages)
{
    QString base = m_settings.baseUrl;
    while (base.endsWith(QLatin1Char('/'))) {
        base.chop(1);
    }
    const std::optional<QUrl> url = HttpExchange::parsedHttpUrl(base + QStringLiteral("/chat/completions"));
    if (!url) {
        throw BackendFailure(500, QStringLiteral("The backend's AI model server URL is invalid."));
    }
    QJsonArray wireMessages;
    for (const ChatMessage& message : messages) {
        wireMessages.append(QJsonObject{{"role", message.role}, {"content", message.content}});
    }
    const QJsonObject body{{"model", m_settings.model}, {"messages", wireMessages}, {"stream", false}};

    QNetworkRequest request(*url);
    request.setHeader(QNetworkRequest::ContentTypeHeader, QByteArrayLiteral("application/json"));
    if (!m_settings.apiKey.isEmpty()) {
        request.setRawHeader(QByteArrayLiteral("Authorization"), "Bearer " + m_settings.apiKey.toUtf8());
    }
    HttpExchange::Response response;
    try {
        response = co_await HttpExchange::send(m_network, request, QByteArrayLiteral("POST"),
                                               QJsonDocument(body).toJson(QJsonDocument::Compact),
                                               m_settings.limits);
    } catch (const NetworkError& error) {
        throw BackendFailure(502, QStringLiteral("The AI model server cannot be reached: ") +
                                      error.errorDescription());
    }
    if (response.status < 200 || response.status > 299) {
        throw failureFor(response.status, response.body, m_settings.model);
    }
    const QJsonValue content = QJsonDocument::fromJson(response.body)
                                   .object()
                                   .value(QLatin1StringView("choices"))
                                   .toArray()
                                   .at(0)
                                   .toObject()
                                   .value(QLatin1StringView("message"))
                                   .toObject()
                                   .value(QLatin1StringView("content"));
    if (!content.isString()) {
        throw BackendFailure(502,
                             QStringLiteral("The AI model server sent an answer the backend cannot read."));
    }
    // Reasoning models served locally put their deliberation before the answer; the user wants the answer.
    static const QRegularExpression reasoning(QStringLiteral("^\\s*<think>.*?</think>"),
                                              QRegularExpression::DotMatchesEverythingOption);
    const QString answer = content.toString().remove(reasoning).trimmed();
    if (answer.isEmpty()) {
        throw BackendFailure(502, QStringLiteral("The AI model returned an empty answer."));
    }
    co_return answer;
}
