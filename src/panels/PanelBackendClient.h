#pragma once

#include "panels/PanelBackend.h"
#include "text/BackendClient.h"

// A panel's own backend client. Each panel has one, so its calls never wait on another panel's.
class PanelBackendClient : public PanelBackend {
public:
    // network and languageRecognizer must outlive the client.
    PanelBackendClient(QNetworkAccessManager& network, BackendCredentials credentials, const QString& baseUrl,
                       const LanguageRecognizer& languageRecognizer)
        : m_client(network, std::move(credentials), baseUrl, languageRecognizer)
    {}

    QCoro::Task<QString> send(PanelBackendRequest request) override;
    QCoro::Task<QString> sendReply(QString message, AIReplyStyle style, QString targetLanguage) override;

private:
    BackendClient m_client;
};
