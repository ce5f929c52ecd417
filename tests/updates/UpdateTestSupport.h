#pragma once

#include "AwaitTask.h"
#include "ScriptedHttpServer.h"
#include "TestClock.h"
#include "updates/AppUpdateClient.h"

#include <QNetworkAccessManager>
#include <QNetworkProxy>
#include <gtest/gtest.h>

// An update client of build 42, version 1.2.3, talking to a scripted server on the loopback interface.
class UpdateFixture : public ::testing::Test {
protected:
    UpdateFixture() { network.setProxy(QNetworkProxy::NoProxy); }

    DeploymentConfiguration configuration() const
    {
        DeploymentConfiguration result;
        result.updatesBaseUrl = server.baseUrl();
        result.currentVersion = QStringLiteral("1.2.3");
        result.currentBuild = 42;
        return result;
    }
    std::unique_ptr<AppUpdateClient> makeClient()
    {
        return std::make_unique<AppUpdateClient>(network, configuration(), clock);
    }
    void answer(int status, const QByteArray& json)
    {
        server.enqueue(ScriptedHttpServer::Reply::json(status, json));
    }

    ScriptedHttpServer server;
    QNetworkAccessManager network;
    TestClock clock;
};
