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
        return actions.run(QuickAction(QString::fromLatin1(id)), "input", "German", {});
    };

    EXPECT_EQ(failureText(run("ai")), "Native Swift action is not ported yet: AI assistant");
    EXPECT_EQ(failureText(run("clipboard")), "Native Swift action is not ported yet: Clipboard window");
    EXPECT_EQ(failureText(run("layout")), "Native Swift action is not ported yet: Keyboard layout fix");
    EXPECT_EQ(failureText(run("style:nowhere")),
              "Native Swift action is not ported yet: Style style:nowhere");
    EXPECT_TRUE(server.requests().isEmpty());

    answer("Hallo!");
    EXPECT_EQ(AwaitTask::run(run("style:friendly")), "Hallo!");
    EXPECT_EQ(AwaitTask::run(run("translate")), "Hallo!");

    ASSERT_EQ(server.requests().size(), 2);
    EXPECT_EQ(server.requests()[0].headers.value("authorization"), "Bearer deployment-token");
    EXPECT_EQ(body(0).value("action").toString(), "style_rewrite");
    EXPECT_EQ(body(0).value("writingStyle").toString(), "Friendly");
    EXPECT_EQ(body(1).value("action").toString(), "translate");
    EXPECT_EQ(body(1).value("targetLanguage").toString(), "German");
}

TEST(DeploymentConfiguration, UserDefaultsOverrideTheBuiltInServers)
{
    MemoryDefaultsStore defaults;
    defaults.setValue("mivora.backend.baseURL", "https://ai.example.test//");
    defaults.setValue("mivora.backend.token", "secret");
    defaults.setValue("mivora.updates.baseURL", QString());
    const DeploymentConfiguration builtIn = DeploymentConfiguration::builtIn();
    const DeploymentConfiguration configuration = DeploymentConfiguration::forUser(defaults);
    EXPECT_EQ(configuration.backendBaseUrl, "https://ai.example.test");
    EXPECT_EQ(configuration.backendToken, "secret");
    EXPECT_EQ(configuration.updatesBaseUrl, builtIn.updatesBaseUrl);
    EXPECT_EQ(configuration.currentBuild, builtIn.currentBuild);

    EXPECT_EQ(DeploymentConfiguration::parseBuildNumber("+42"), 42);
    EXPECT_EQ(DeploymentConfiguration::parseBuildNumber("-3"), -3);
    EXPECT_EQ(DeploymentConfiguration::parseBuildNumber("12a"), 0);
    EXPECT_EQ(DeploymentConfiguration::parseBuildNumber(" 7"), 0);
}
