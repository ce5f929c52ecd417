#pragma once

#include "AwaitTask.h"
#include "ScriptedHttpServer.h"
#include "TestClock.h"
#include "backend/AiEndpoint.h"
#include "backend/BackendHttpServer.h"
#include "backend/GuardedTcpServer.h"
#include "backend/ReleaseDescription.h"
#include "text/BackendRequest.h"

#include <QCoreApplication>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QNetworkAccessManager>
#include <QNetworkProxy>
#include <gtest/gtest.h>

// A request of the program's client with every other argument at its default.
inline BackendRequest::Arguments wire(const QString& text, BackendAction action, const PromptStyle& style)
{
    BackendRequest::Arguments arguments;
    arguments.text = text;
    arguments.action = action;
    arguments.style = style;
    return arguments;
}

// The backend on loopback in front of a scripted OpenAI-compatible model server.
class BackendServerHarness : public ::testing::Test {
protected:
    BackendServerHarness() { network.setProxy(QNetworkProxy::NoProxy); }

    static AiEndpoint::Settings settings()
    {
        AiEndpoint::Settings settings;
        settings.token = QStringLiteral("secret");
        return settings;
    }
    UpstreamChatClient::Settings upstreamSettings()
    {
        return {upstream.baseUrl() + QStringLiteral("/v1"),
                QStringLiteral("test-model"),
                QStringLiteral("key"),
                {std::chrono::milliseconds(1000), std::chrono::seconds(3), 1024 * 1024}};
    }

    // Starts listening; the base URL the program's client is given.
    QString start(ConnectionGuard::Limits limits = {})
    {
        listener = new GuardedTcpServer(limits, &server);
        EXPECT_TRUE(listener->listen(QHostAddress::LocalHost, 0));
        server.bind(listener);
        return QStringLiteral("http://127.0.0.1:%1").arg(listener->serverPort());
    }

    void completion(const QString& content, std::chrono::milliseconds delay = {})
    {
        const QJsonObject choice{{"index", 0},
                                 {"message", QJsonObject{{"role", "assistant"}, {"content", content}}}};
        ScriptedHttpServer::Reply reply = ScriptedHttpServer::Reply::json(
            200, QJsonDocument(QJsonObject{{"choices", QJsonArray{choice}}}).toJson(QJsonDocument::Compact));
        reply.delay = delay;
        upstream.enqueue(reply);
    }

    AiEndpoint::Answer ask(const BackendRequest::Arguments& arguments,
                           const QByteArray& token = "Bearer secret")
    {
        return AwaitTask::run(endpoint.handle(token, "DEVICE-1", BackendRequest::make(arguments).toJson()));
    }

    // The messages of the index-th call to the model server.
    const QJsonArray upstreamMessages(qsizetype index) const
    {
        return QJsonDocument::fromJson(upstream.requests().at(index).body)
            .object()
            .value("messages")
            .toArray();
    }

    ScriptedHttpServer upstream;
    QNetworkAccessManager network;
    TestClock clock;
    UpstreamChatClient chat{network, upstreamSettings()};
    AiEndpoint endpoint{clock, chat, settings()};
    const QString releasePath = QDir::temp().filePath(
        QStringLiteral("mivora-backend-test-%1.json").arg(QCoreApplication::applicationPid()));
    ReleaseDescription release{releasePath};
    BackendHttpServer server{clock, endpoint, release};
    GuardedTcpServer* listener = nullptr;
};
