#include "exchange/PermissionController.h"

#include "AppStateHarness.h"
#include "FakePermissionProbe.h"
#include "FakeProcessRunner.h"
#include "FakeUrlOpener.h"
#include "exchange/PermissionService.h"

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {

class PermissionControllerTest : public ::testing::Test, protected AppStateHarness {
protected:
    PermissionControllerTest()
    {
        probe.accessibility = false;
        probe.inputMonitoring = false;
        probe.grantsOnRequest = true;
    }
    void inRussian()
    {
        configure([](MivoraSettings& s) { s.uiLanguage = UiLanguage::ru; });
    }
    bool bothGranted() const
    {
        return state.permissionState().accessibilityGranted && state.permissionState().inputMonitoringGranted;
    }

    FakePermissionProbe probe;
    FakeProcessRunner tool;
    PermissionService service{tool};
    FakeUrlOpener opener;
    PermissionController controller{state, clock, probe, service, opener};
};

TEST_F(PermissionControllerTest, RequestShowsItsRunningTextWhileTheSystemAppliesIt)
{
    controller.requestPermissions();
    EXPECT_EQ(probe.requests, 2);
    clock.advance(349ms);
    EXPECT_EQ(state.status(), ActionStatus::running("Requesting permissions"));
    EXPECT_FALSE(bothGranted());
    clock.advance(1ms);
    EXPECT_TRUE(bothGranted());
    EXPECT_EQ(state.status(), ActionStatus::done("Permission request sent"));
    clock.advance(900ms);
    EXPECT_EQ(state.status(), ActionStatus::idle());

    inRussian();
    controller.requestPermissions();
    EXPECT_EQ(state.status(), ActionStatus::running("Запрашиваю разрешения"));
    clock.advance(350ms);
    EXPECT_EQ(state.status(), ActionStatus::done("Запрос разрешений отправлен"));
}

TEST_F(PermissionControllerTest, ResetWaitsForTheSystemBeforeAskingAgain)
{
    controller.resetMivoraPermissions(true);
    EXPECT_EQ(tool.commandLines.size(), 10);
    clock.advance(349ms);
    EXPECT_EQ(state.status(), ActionStatus::running("Resetting permissions"));
    EXPECT_EQ(probe.requests, 0);
    clock.advance(1ms);
    EXPECT_TRUE(bothGranted());
    EXPECT_EQ(state.status(), ActionStatus::done("Permissions reset. Request sent."));

    // Without a new request, the grants are only read again.
    inRussian();
    probe.accessibility = false;
    controller.resetMivoraPermissions(false);
    EXPECT_EQ(state.status(), ActionStatus::running("Сбрасываю разрешения"));
    clock.advance(350ms);
    EXPECT_EQ(probe.requests, 2);
    EXPECT_FALSE(state.permissionState().accessibilityGranted);
    EXPECT_EQ(state.status(), ActionStatus::done("Разрешения Mivora сброшены"));

    controller.resetMivoraPermissions(true);
    clock.advance(350ms);
    EXPECT_EQ(state.status(), ActionStatus::done("Разрешения сброшены. Новый запрос отправлен."));
}

TEST_F(PermissionControllerTest, AToolThatCannotStartFailsTheReset)
{
    tool.answer = [](const QStringList&) { return ProcessResult{QStringLiteral("execve: denied"), 0, {}}; };
    controller.resetMivoraPermissions(true);
    EXPECT_EQ(state.status(), ActionStatus::failed("execve: denied"));
    clock.advance(1300ms);
    EXPECT_EQ(state.status(), ActionStatus::idle());
    EXPECT_EQ(probe.requests, 0);
}

// Where the system keeps no grants and reaches its settings by a program of its own (an X11 desktop).
TEST_F(PermissionControllerTest, WithoutGrantsToResetOrKnownSettingsTheUserIsToldSo)
{
    probe.resettable = false;
    controller.resetMivoraPermissions(true);
    EXPECT_EQ(state.status(),
              ActionStatus::failed("Permissions can't be reset here: this system keeps no per-app grants."));
    EXPECT_TRUE(tool.commandLines.isEmpty());
    EXPECT_EQ(probe.requests, 0);

    probe.settings = GrantSettingsOpening::opened;
    inRussian();
    controller.openPermissionSettings(PermissionSettingsTarget::accessibility);
    EXPECT_TRUE(opener.opened.isEmpty());
    probe.settings = GrantSettingsOpening::unknown;
    controller.openPermissionSettings(PermissionSettingsTarget::accessibility);
    EXPECT_EQ(state.status(), ActionStatus::failed("Не удалось открыть настройки специальных возможностей "
                                                   "этого рабочего стола; откройте их в его собственных "
                                                   "настройках."));
    EXPECT_TRUE(opener.opened.isEmpty());
}

} // namespace
