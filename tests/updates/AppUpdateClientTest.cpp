#include "FailureText.h"
#include "UpdateTestSupport.h"

TEST_F(UpdateFixture, AsksWithTheBuildsIdentityInOrder)
{
    AppUpdateClient client(network, configuration(), clock);
    answer(200, R"({"ok":true,"latest_build":42})");
    AwaitTask::run(client.check(UiLanguage::ru));
    AwaitTask::run(client.check(UiLanguage::en));

    ASSERT_EQ(server.requests().size(), 2);
    const ScriptedHttpServer::Request& request = server.requests()[0];
    EXPECT_EQ(request.method, "GET");
    EXPECT_EQ(request.path, "/macos/app/version");
    EXPECT_EQ(request.query, "channel=release&platform=macos&current_version=1.2.3&current_build=42"
                             "&bundle_id=ai.mivora.native&locale=ru");
    EXPECT_TRUE(server.requests()[1].query.endsWith("&locale=en"));
}

TEST_F(UpdateFixture, FillsTheSnapshotFromWhatTheServerSaysOrLeavesOut)
{
    AppUpdateClient client(network, configuration(), clock);

    answer(200, R"({"latest_build":42,"min_supported_build":40})");
    AppUpdateSnapshot same = AwaitTask::run(client.check(UiLanguage::en));
    EXPECT_FALSE(same.updateAvailable);
    EXPECT_FALSE(same.forceUpdate);
    EXPECT_EQ(same.checkedAt, clock.now());

    answer(200, R"({"latest_version":"2.0","latest_build":50,"min_supported_build":43,
                    "download_url":"https://example.test/MivoraAI-2.0.dmg","sha256":"abc",
                    "title":"Big release","message":{"en":"New!","ru":"Новое!"},"release_notes":{"ru":"Только"}})");
    AppUpdateSnapshot newer = AwaitTask::run(client.check(UiLanguage::ru));
    EXPECT_TRUE(newer.updateAvailable);
    EXPECT_TRUE(newer.forceUpdate);
    EXPECT_EQ(newer.latestVersion, "2.0");
    EXPECT_EQ(newer.latestBuild, 50);
    EXPECT_EQ(newer.downloadURL, QUrl("https://example.test/MivoraAI-2.0.dmg"));
    EXPECT_EQ(newer.title, "Big release");
    EXPECT_EQ(newer.message, "Новое!");
    EXPECT_EQ(newer.releaseNotes, "Только");
    // English falls back to the only text there is.
    EXPECT_EQ(AwaitTask::run(client.check(UiLanguage::en)).releaseNotes, "Только");

    // The server's own flags win over the build comparison.
    answer(200, R"({"update_available":false,"force_update":false,"latest_build":99,"min_supported_build":99,
                    "download_url":"not a url"})");
    AppUpdateSnapshot overruled = AwaitTask::run(client.check(UiLanguage::en));
    EXPECT_FALSE(overruled.updateAvailable);
    EXPECT_FALSE(overruled.forceUpdate);
    EXPECT_EQ(overruled.downloadURL, std::nullopt);
}

TEST_F(UpdateFixture, ReportsEachFailureWithItsText)
{
    AppUpdateClient client(network, configuration(), clock);
    auto failureOf = [&](int status, const QByteArray& body) {
        answer(status, body);
        return failureText(client.check(UiLanguage::en));
    };
    EXPECT_EQ(failureOf(200, R"({"ok":false,"error":"Channel closed"})"), "Channel closed");
    EXPECT_EQ(failureOf(200, R"({"ok":false})"), "Update check failed.");
    EXPECT_EQ(failureOf(404, R"({"error":"No such app"})"), "No such app");
    EXPECT_EQ(failureOf(404, ""), "Update server returned HTTP 404.");
    EXPECT_EQ(failureOf(500, R"({"error":""})"), "Update server returned HTTP 500.");
    EXPECT_EQ(failureOf(502, "<html>gateway</html>"), "Update server returned HTTP 502.");
    EXPECT_EQ(failureOf(200, "<html>portal</html>"),
              "The data couldn't be read because it isn't in the correct format.");
    EXPECT_EQ(failureOf(200, R"({"latest_build":"fifty"})"),
              "The data couldn't be read because it isn't in the correct format.");

    DeploymentConfiguration unset = configuration();
    unset.updatesBaseUrl.clear();
    AppUpdateClient misconfigured(network, unset, clock);
    const qsizetype sent = server.requests().size();
    EXPECT_EQ(failureText(misconfigured.check(UiLanguage::en)), "Update URL is invalid.");
    EXPECT_EQ(server.requests().size(), sent);
}
