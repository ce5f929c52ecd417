#pragma once

#include "AwaitTask.h"
#include "FailureText.h"
#include "FakeLanguageRecognizer.h"
#include "MemoryDefaultsStore.h"
#include "ScriptedHttpServer.h"
#include "text/BackendClient.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkAccessManager>
#include <QNetworkProxy>
#include <gtest/gtest.h>

// A backend client talking to a scripted server on the loopback interface.
class BackendClientFixture : public ::testing::Test {
protected:
    BackendClientFixture() { network.setProxy(QNetworkProxy::NoProxy); }

    BackendClient makeClient(HttpExchange::Limits limits = BackendClient::defaultLimits())
    {
        return makeClient(server.baseUrl(), limits);
    }
    BackendClient makeClient(const QString& baseUrl,
                             HttpExchange::Limits limits = BackendClient::defaultLimits())
    {
        return BackendClient(network, BackendCredentials(defaults, QStringLiteral("token-1")), baseUrl,
                             recognizer, limits);
    }

    // The next answer is a success with this result.
    void answer(const QString& result)
    {
        server.enqueue(ScriptedHttpServer::Reply::json(
            200, QJsonDocument(QJsonObject{{"result", result}}).toJson(QJsonDocument::Compact)));
    }

    QJsonObject body(qsizetype index) const
    {
        return QJsonDocument::fromJson(server.requests().at(index).body).object();
    }

    ScriptedHttpServer server;
    QNetworkAccessManager network;
    MemoryDefaultsStore defaults;
    FakeLanguageRecognizer recognizer;
};

inline PromptStyle styleWithId(const QString& id)
{
    return PromptStyle{id, QStringLiteral("Name of ") + id, QStringLiteral("Prompt of ") + id,
                       QStringLiteral("Not assigned"), true};
}
