#include "updates/AppUpdateClient.h"

#include "core/Clock.h"
#include "updates/AppUpdateClientError.h"

#include <QUrlQuery>

HttpExchange::Limits AppUpdateClient::defaultLimits()
{
    return HttpExchange::Limits{std::chrono::seconds(60), std::chrono::seconds(30), qint64(1024) * 1024};
}

AppUpdateClient::AppUpdateClient(QNetworkAccessManager& network, const DeploymentConfiguration& configuration,
                                 const Clock& clock, HttpExchange::Limits limits)
    : m_network(&network), m_configuration(configuration), m_clock(clock), m_limits(limits)
{}

QCoro::Task<AppUpdateSnapshot> AppUpdateClient::check(UiLanguage language)
{
    std::optional<QUrl> url =
        HttpExchange::parsedHttpUrl(m_configuration.updatesBaseUrl + QStringLiteral("/macos/app/version"));
    if (!url) {
        throw AppUpdateClientError::invalidURL();
    }
    const int currentBuild = m_configuration.currentBuild;
    QUrlQuery query;
    query.setQueryItems({
        {QStringLiteral("channel"), QStringLiteral("release")},
        {QStringLiteral("platform"), QStringLiteral("macos")},
        {QStringLiteral("current_version"), m_configuration.currentVersion},
        {QStringLiteral("current_build"), QString::number(currentBuild)},
        {QStringLiteral("bundle_id"), QStringLiteral("ai.mivora.native")},
        {QStringLiteral("locale"), language == UiLanguage::ru ? QStringLiteral("ru") : QStringLiteral("en")},
    });
    url->setQuery(query);
    QNetworkRequest request(*url);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    // The client may be gone by the time the answer arrives; nothing below touches it.
    const Clock& clock = m_clock;

    const HttpExchange::Response response =
        co_await HttpExchange::send(m_network, request, QByteArrayLiteral("GET"), QByteArray(), m_limits);

    if (response.status >= 200 && response.status <= 299) {
        const AppUpdateResponse decoded = AppUpdateResponse::decode(response.body);
        if (decoded.ok == false) {
            throw AppUpdateClientError::server(
                decoded.error.value_or(QStringLiteral("Update check failed.")));
        }
        co_return AppUpdateSnapshot::from(decoded, language, currentBuild, clock.now());
    }
    std::optional<QString> serverError;
    try {
        serverError = AppUpdateResponse::decode(response.body).error;
    } catch (const MivoraError&) {
        // An error page that is not JSON says nothing more than its status.
    }
    if (serverError && !serverError->isEmpty()) {
        throw AppUpdateClientError::server(*serverError);
    }
    throw AppUpdateClientError::server(
        QStringLiteral("Update server returned HTTP %1.").arg(response.status));
}
