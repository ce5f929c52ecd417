#include "backend/AiEndpoint.h"

#include "backend/BackendFailure.h"
#include "backend/PromptComposer.h"

#include <QTextBoundaryFinder>

namespace {

AiEndpoint::Answer errorAnswer(int status, const QString& text)
{
    return {status, QJsonObject{{"error", text}}};
}

// Equal length first, then every byte looked at whatever differs, so the time taken tells nothing about how
// much of a guessed token was right.
bool sameSecret(const QByteArray& given, const QByteArray& expected)
{
    unsigned char difference = given.size() == expected.size() ? 0 : 1;
    for (qsizetype i = 0; i < given.size(); ++i) {
        difference |=
            static_cast<unsigned char>(given[i] ^ expected[i % qMax<qsizetype>(expected.size(), 1)]);
    }
    return difference == 0;
}

// User-perceived characters, as the program counts them when it cuts a text into pieces.
int characterCount(const QString& text)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    int count = 0;
    while (finder.toNextBoundary() != -1) {
        ++count;
    }
    return count;
}

} // namespace

AiEndpoint::AiEndpoint(const Clock& clock, UpstreamChatClient& upstream, Settings settings)
    : m_upstream(upstream), m_settings(std::move(settings)), m_sessions(clock, m_settings.sessions),
      m_rateLimiter(clock, m_settings.maxRequestsPerDevicePerMinute, std::chrono::minutes(1))
{}

QCoro::Task<AiEndpoint::Answer> AiEndpoint::handle(QByteArray authorization, QByteArray deviceId,
                                                   QByteArray body)
{
    if (m_settings.token.isEmpty() || !sameSecret(authorization, "Bearer " + m_settings.token.toUtf8())) {
        co_return errorAnswer(401, QStringLiteral("The backend token is missing or wrong. Check the token in "
                                                  "MivoraAI's settings."));
    }
    const QString device = QString::fromUtf8(deviceId).trimmed();
    if (device.isEmpty() || device.size() > 128) {
        co_return errorAnswer(400, QStringLiteral("The request lacks the device identifier."));
    }
    if (!m_rateLimiter.admit(device)) {
        co_return errorAnswer(429, QStringLiteral("Too many requests from this device. Wait a minute and try "
                                                  "again."));
    }
    try {
        co_return co_await serve(std::move(body), device);
    } catch (const BackendFailure& failure) {
        co_return errorAnswer(failure.status(), failure.errorDescription());
    }
}

QCoro::Task<AiEndpoint::Answer> AiEndpoint::serve(QByteArray body, QString deviceId)
{
    auto parsed = WireRequest::parse(body);
    if (const QString* problem = std::get_if<QString>(&parsed)) {
        co_return errorAnswer(400, *problem);
    }
    const WireRequest request = std::get<WireRequest>(std::move(parsed));
    if (request.text.trimmed().isEmpty()) {
        co_return errorAnswer(400, QStringLiteral("No text to process."));
    }
    // Only the text is cut into parts by the client; the message replied to comes whole with each part, so
    // the body limit alone bounds it.
    if (characterCount(request.text) > m_settings.maxTextCharacters) {
        co_return errorAnswer(413, QStringLiteral("The text is longer than %1 characters; send it in parts.")
                                       .arg(m_settings.maxTextCharacters));
    }
    // Sessions are per device, so one installation can never read another's conversation.
    const bool keeps = request.action == QLatin1StringView("assistant") && request.keepContext &&
                       !request.assistantSessionId.isEmpty();
    const QString sessionKey = deviceId + QLatin1Char('\n') + request.assistantSessionId;
    auto composed =
        PromptComposer::compose(request, keeps ? m_sessions.history(sessionKey) : QList<ChatMessage>());
    if (const QString* problem = std::get_if<QString>(&composed)) {
        co_return errorAnswer(400, *problem);
    }
    if (m_upstreamCalls >= m_settings.maxConcurrentUpstreamCalls) {
        co_return errorAnswer(503, QStringLiteral("The AI backend is busy. Try again in a moment."));
    }
    ++m_upstreamCalls;
    struct Release {
        int& calls;
        ~Release() { --calls; }
    } release{m_upstreamCalls};
    const QString result = co_await m_upstream.complete(std::get<QList<ChatMessage>>(std::move(composed)));
    if (keeps) {
        m_sessions.record(sessionKey, request.text, result);
    }
    co_return Answer{200, QJsonObject{{"result", result}}};
}
