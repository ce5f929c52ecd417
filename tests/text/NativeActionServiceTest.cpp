#include "BackendTestSupport.h"
#include "text/MivoraCore.h"

TEST_F(BackendClientFixture, RoutesStyleActionsToTheBackendAndRefusesTheRest)
{
    DeploymentConfiguration configuration;
    configuration.backendBaseUrl = server.baseUrl();
    configuration.backendToken = QStringLiteral("deployment-token");
    MivoraCore core(network, defaults, recognizer, configuration);
    NativeActionService& actions = core.actions();
    auto run = [&](const char* id) {
        return actions.run(QuickAction(QString::fromLatin1(id)), QStringLiteral("input"),
                           QStringLiteral("German"), {});
    };

    EXPECT_EQ(failureText(run("ai")), QStringLiteral("Native Swift action is not ported yet: AI assistant"));
    EXPECT_EQ(failureText(run("clipboard")),
              QStringLiteral("Native Swift action is not ported yet: Clipboard window"));
    EXPECT_EQ(failureText(run("layout")),
              QStringLiteral("Native Swift action is not ported yet: Keyboard layout fix"));
    EXPECT_EQ(failureText(run("style:nowhere")),
              QStringLiteral("Native Swift action is not ported yet: Style style:nowhere"));
    EXPECT_TRUE(server.requests().isEmpty());

    server.enqueue(ScriptedHttpServer::Reply::json(200, R"({"result":"Hallo!"})"));
    EXPECT_EQ(AwaitTask::run(run("style:friendly")), QStringLiteral("Hallo!"));
    EXPECT_EQ(AwaitTask::run(run("translate")), QStringLiteral("Hallo!"));

    ASSERT_EQ(server.requests().size(), 2);
    EXPECT_EQ(server.requests()[0].headers.value("authorization"), "Bearer deployment-token");
    EXPECT_EQ(body(0).value(QStringLiteral("action")).toString(), QStringLiteral("style_rewrite"));
    EXPECT_EQ(body(0).value(QStringLiteral("writingStyle")).toString(), QStringLiteral("Friendly"));
    EXPECT_EQ(body(1).value(QStringLiteral("action")).toString(), QStringLiteral("translate"));
    EXPECT_EQ(body(1).value(QStringLiteral("targetLanguage")).toString(), QStringLiteral("German"));
}

TEST(DeploymentConfiguration, UserDefaultsOverrideTheBuiltInServers)
{
    MemoryDefaultsStore defaults;
    defaults.setValue(QStringLiteral("mivora.backend.baseURL"), QStringLiteral("https://ai.example.test//"));
    defaults.setValue(QStringLiteral("mivora.backend.token"), QStringLiteral("secret"));
    defaults.setValue(QStringLiteral("mivora.updates.baseURL"), QString());
    const DeploymentConfiguration builtIn = DeploymentConfiguration::builtIn();
    const DeploymentConfiguration configuration = DeploymentConfiguration::forUser(defaults);
    EXPECT_EQ(configuration.backendBaseUrl, QStringLiteral("https://ai.example.test"));
    EXPECT_EQ(configuration.backendToken, QStringLiteral("secret"));
    EXPECT_EQ(configuration.updatesBaseUrl, builtIn.updatesBaseUrl);
    EXPECT_EQ(configuration.currentBuild, builtIn.currentBuild);

    EXPECT_EQ(DeploymentConfiguration::parseBuildNumber(QStringLiteral("+42")), 42);
    EXPECT_EQ(DeploymentConfiguration::parseBuildNumber(QStringLiteral("-3")), -3);
    EXPECT_EQ(DeploymentConfiguration::parseBuildNumber(QStringLiteral("12a")), 0);
    EXPECT_EQ(DeploymentConfiguration::parseBuildNumber(QStringLiteral(" 7")), 0);
}
