#include "updates/AppUpdateManager.h"

#include "FakeUpdater.h"
#include "FakeUrlOpener.h"
#include "MemoryDefaultsStore.h"
#include "UpdateTestSupport.h"
#include "updates/UpdateAlertPresenter.h"

using namespace std::chrono_literals;

namespace {

class RecordingAlerts : public UpdateAlertPresenter {
public:
    void showUpdateAlert(const QString& text) override { shown.append(text); }
    QStringList shown;
};

const QByteArray newerBuild = R"({"latest_version":"2.0","latest_build":50,
                                  "download_url":"https://example.test/MivoraAI-2.0.tar.gz"})";

} // namespace

class AppUpdateManagerTest : public UpdateFixture {
protected:
    AppUpdateManagerTest() { settings.uiLanguage = UiLanguage::en; }

    std::unique_ptr<AppUpdateManager> makeManager(Updater* updater = nullptr)
    {
        auto manager = std::make_unique<AppUpdateManager>(makeClient(), defaults, clock, opener, updater);
        manager->setAlertPresenter(&alerts);
        return manager;
    }
    void settle(const AppUpdateManager& manager)
    {
        ASSERT_TRUE(AwaitTask::until([&] { return !manager.isChecking(); }));
    }
    void checkAutomatically(AppUpdateManager& manager)
    {
        AwaitTask::run(manager.checkAutomaticallyIfNeeded(settings));
    }
    void checkManually(AppUpdateManager& manager)
    {
        manager.checkManually(settings);
        settle(manager);
    }

    MivoraSettings settings;
    MemoryDefaultsStore defaults;
    FakeUrlOpener opener;
    RecordingAlerts alerts;
};

TEST_F(AppUpdateManagerTest, PeriodicChecksRunAtMostOnceADayAndAlertOncePerBuild)
{
    answer(200, newerBuild);
    auto manager = makeManager();
    manager->startAutomaticChecks([this] { return settings; });
    settle(*manager);

    // The launch check alerts and remembers the build, but does not count as a periodic check.
    EXPECT_EQ(alerts.shown, QStringList{"Version 2.0 is available."});
    EXPECT_EQ(defaults.value("mivora.updates.lastNotifiedBuild").toInt(), 50);
    EXPECT_FALSE(defaults.contains("mivora.updates.lastAutomaticCheckAt"));

    clock.advance(6h);
    settle(*manager);
    EXPECT_EQ(server.requests().size(), 2);
    EXPECT_EQ(manager->message(), "Version 2.0 is available.");
    EXPECT_EQ(alerts.shown.size(), 1);

    // 6, 12 and 18 hours after the periodic check: too soon. 24 hours: due.
    for (int firing = 0; firing < 3; ++firing) {
        clock.advance(6h);
        settle(*manager);
    }
    EXPECT_EQ(server.requests().size(), 2);
    answer(200, R"({"latest_version":"2.1","latest_build":51,"message":{"en":"Faster panels"}})");
    clock.advance(6h);
    settle(*manager);
    EXPECT_EQ(server.requests().size(), 3);
    EXPECT_EQ(alerts.shown.last(), "Faster panels");

    // The remembered build survives into the next launch.
    auto relaunched = makeManager();
    checkManually(*relaunched);
    defaults.remove("mivora.updates.lastAutomaticCheckAt");
    const qsizetype alertsBefore = alerts.shown.size();
    checkAutomatically(*relaunched);
    EXPECT_EQ(alerts.shown.size(), alertsBefore);
}

TEST_F(AppUpdateManagerTest, SwitchedOffChecksAndNotificationsStayQuiet)
{
    settings.automaticUpdateChecksEnabled = false;
    auto manager = makeManager();
    manager->startAutomaticChecks([this] { return settings; });
    clock.advance(48h);
    settle(*manager);
    EXPECT_TRUE(server.requests().isEmpty());

    settings.automaticUpdateChecksEnabled = true;
    settings.updateNotificationsEnabled = false;
    answer(200, newerBuild);
    checkAutomatically(*manager);
    EXPECT_EQ(server.requests().size(), 1);
    EXPECT_EQ(manager->message(), "Version 2.0 is available.");
    EXPECT_EQ(manager->alertMessage(), std::nullopt);
    EXPECT_TRUE(alerts.shown.isEmpty());
}

TEST_F(AppUpdateManagerTest, ForcedUpdatesAndAnswersWithoutABuildAlertEveryTime)
{
    settings.updateNotificationsEnabled = false;
    settings.uiLanguage = UiLanguage::ru;
    auto manager = makeManager();
    answer(200, R"({"latest_version":"3.0","latest_build":60,"min_supported_build":43})");
    for (int check = 0; check < 2; ++check) {
        defaults.remove("mivora.updates.lastAutomaticCheckAt");
        checkAutomatically(*manager);
    }
    EXPECT_EQ(alerts.shown, QStringList(2, "Доступна версия 3.0."));

    settings.updateNotificationsEnabled = true;
    answer(200, R"({"update_available":true})");
    for (int check = 0; check < 2; ++check) {
        defaults.remove("mivora.updates.lastAutomaticCheckAt");
        checkAutomatically(*manager);
    }
    EXPECT_EQ(alerts.shown.size(), 4);
    EXPECT_EQ(alerts.shown.last(), "Доступна версия новая.");
}

TEST_F(AppUpdateManagerTest, ManualChecksAlwaysTellAndAutomaticFailuresStayInline)
{
    defaults.setValue("mivora.updates.lastNotifiedBuild", 50);
    auto manager = makeManager();
    answer(200, newerBuild);
    checkAutomatically(*manager);
    EXPECT_TRUE(alerts.shown.isEmpty());
    checkManually(*manager);
    EXPECT_EQ(alerts.shown, QStringList{"Version 2.0 is available."});

    answer(503, "");
    defaults.remove("mivora.updates.lastAutomaticCheckAt");
    checkAutomatically(*manager);
    EXPECT_EQ(manager->message(), "Update server returned HTTP 503.");
    EXPECT_EQ(manager->alertMessage(), "Version 2.0 is available.");
    // A failed periodic check is not remembered as done.
    EXPECT_FALSE(defaults.contains("mivora.updates.lastAutomaticCheckAt"));

    checkManually(*manager);
    EXPECT_EQ(manager->alertMessage(), "Update server returned HTTP 503.");
    EXPECT_FALSE(manager->isChecking());
}

TEST_F(AppUpdateManagerTest, ASecondCheckWhileOneRunsIsDropped)
{
    ScriptedHttpServer::Reply slow = ScriptedHttpServer::Reply::json(200, newerBuild);
    slow.delay = 200ms;
    server.enqueue(slow);
    auto manager = makeManager();
    manager->checkManually(settings);
    EXPECT_TRUE(manager->isChecking());
    manager->checkManually(settings);
    checkAutomatically(*manager);
    settle(*manager);
    EXPECT_EQ(server.requests().size(), 1);
}

TEST_F(AppUpdateManagerTest, TheUpdateButtonPrefersThePlatformUpdaterThenTheDownloadLink)
{
    auto manager = makeManager();
    manager->openDownload();
    EXPECT_EQ(manager->message(), "Update download URL is not available.");

    answer(200, newerBuild);
    checkManually(*manager);
    opener.succeeds = false;
    manager->updateButtonPressed();
    EXPECT_EQ(opener.opened, QList<QUrl>{QUrl("https://example.test/MivoraAI-2.0.tar.gz")});
    EXPECT_EQ(manager->message(), "Could not open update download.");
    EXPECT_EQ(manager->alertMessage(), "Could not open update download.");

    FakeUpdater updater;
    auto withUpdater = makeManager(&updater);
    withUpdater->updateButtonPressed();
    EXPECT_EQ(updater.checks, 1);
    EXPECT_EQ(opener.opened.size(), 1);
    updater.canCheck = false;
    withUpdater->updateButtonPressed();
    EXPECT_EQ(updater.checks, 1);
    EXPECT_EQ(withUpdater->message(), "Update download URL is not available.");
}
