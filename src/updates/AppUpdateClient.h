#pragma once

#include "core/UiLanguage.h"
#include "net/DeploymentConfiguration.h"
#include "net/HttpExchange.h"
#include "updates/AppUpdateSnapshot.h"

#include <QNetworkAccessManager>
#include <QPointer>
#include <qcoro/qcorotask.h>

class Clock;

// Asks the update server whether a newer build exists: GET "<base URL>/macos/app/version".
class AppUpdateClient {
public:
    // An update check gets 60 s without bytes and 30 s in all, and a small answer.
    static HttpExchange::Limits defaultLimits();

    // The network manager and the clock must outlive the client; the client may go while a check runs.
    AppUpdateClient(QNetworkAccessManager& network, const DeploymentConfiguration& configuration,
                    const Clock& clock, HttpExchange::Limits limits = defaultLimits());

    // GUI thread; suspends while the server answers. Throws AppUpdateClientError, NetworkError or
    // ResponseDecodingError with the text the user sees.
    QCoro::Task<AppUpdateSnapshot> check(UiLanguage language);

private:
    QPointer<QNetworkAccessManager> m_network;
    DeploymentConfiguration m_configuration;
    const Clock& m_clock;
    HttpExchange::Limits m_limits;
};
