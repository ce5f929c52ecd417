#pragma once

#include "backend/ChatMessage.h"
#include "net/HttpExchange.h"

#include <QList>
#include <QPointer>
#include <QString>
#include <qcoro/qcorotask.h>

class QNetworkAccessManager;

// The OpenAI-compatible model server behind the backend: one chat completion per call.
class UpstreamChatClient {
public:
    struct Settings {
        // Up to and including the API version, e.g. "http://127.0.0.1:11434/v1".
        QString baseUrl;
        QString model;
        // Sent as a bearer token when not empty.
        QString apiKey;
        // Kept under the program's own 60 s, so the user reads the backend's explanation, not a time-out.
        HttpExchange::Limits limits{std::chrono::seconds(45), std::chrono::seconds(50),
                                    qint64(4) * 1024 * 1024};
    };

    UpstreamChatClient(QNetworkAccessManager& network, Settings settings);

    // The assistant message of the completion. Throws BackendFailure with a text for the user when the model
    // server cannot be reached, refuses, lacks the model, limits the rate or answers something unreadable.
    QCoro::Task<QString> complete(QList<ChatMessage> messages);

private:
    QPointer<QNetworkAccessManager> m_network;
    Settings m_settings;
};
