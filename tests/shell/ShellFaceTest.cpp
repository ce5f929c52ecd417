#include "AppStateHarness.h"
#include "platform/ApplicationPresence.h"
#include "shell/AutostartEntry.h"
#include "shell/MenuBarController.h"
#include "shell/MivoraAppDelegate.h"
#include "shell/TraySurface.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <optional>

using namespace std::chrono_literals;

namespace {

struct TrayLog {
    int made = 0;
    bool alive = false;
    MenuModel menu;
};

class RecordingTray : public TraySurface {
public:
    explicit RecordingTray(TrayLog& log) : m_log(log)
    {
        ++m_log.made;
        m_log.alive = true;
    }
    ~RecordingTray() override
    {
        m_log.alive = false;
        m_log.menu.clear();
    }
    void setMenu(const MenuModel& menu) override { m_log.menu = menu; }

private:
    TrayLog& m_log;
};

QStringList titles(const MenuModel& menu)
{
    QStringList result;
    for (const MenuEntry& entry : menu) {
        result << (entry.kind == MenuEntry::Kind::separator ? QStringLiteral("---") : entry.title);
    }
    return result;
}

class MenuBarTest : public AppStateHarness, public ::testing::Test {
protected:
    MenuBarTest()
    {
        actions.showMainWindow = [this] { ++shown; };
        actions.quit = [this] { ++quits; };
        actions.builtInDisplay = [this] { return display; };
        menuBar = std::make_unique<MenuBarController>(
            [this] { return std::make_unique<RecordingTray>(tray); }, actions);
        menuBar->attach(state);
    }

    TrayLog tray;
    int shown = 0;
    int quits = 0;
    std::optional<BuiltInDisplayMenuState> display;
    MenuBarController::Actions actions;
    std::unique_ptr<MenuBarController> menuBar;
};

} // namespace

TEST_F(MenuBarTest, WithoutADisplayToSwitchTheMenuHasItsEightRows)
{
    EXPECT_EQ(titles(tray.menu),
              (QStringList{"Open MivoraAI", "Quick Menu", "Clipboard History", "Translation Preview", "---",
                           "Permissions", "Refresh Permissions", "---", "Quit MivoraAI"}));
    tray.menu.last().action();
    EXPECT_EQ(quits, 1);

    tray.menu[5].action(); // Permissions
    EXPECT_EQ(state.selectedSettingsPage(), SettingsPage::permissions);
    EXPECT_EQ(shown, 1);
}

TEST_F(MenuBarTest, TheDisplayRowFollowsTheDisplayAndTheInterfaceLanguage)
{
    // One screen only: the row is there but the last screen cannot go.
    display = BuiltInDisplayMenuState{false, true, false};
    configure([](MivoraSettings& s) { s.uiLanguage = UiLanguage::ru; });
    ASSERT_EQ(titles(tray.menu).mid(4, 2), (QStringList{"---", QStringLiteral("Выключить экран MacBook")}));
    EXPECT_FALSE(tray.menu[5].enabled);
    EXPECT_FALSE(tray.menu[5].checked);

    // Switched off by us: checked and enabled whatever else holds.
    display = BuiltInDisplayMenuState{true, false, false};
    menuBar->displayStateChanged();
    EXPECT_TRUE(tray.menu[5].enabled);
    EXPECT_TRUE(tray.menu[5].checked);

    display = BuiltInDisplayMenuState{false, true, true};
    configure([](MivoraSettings& s) { s.uiLanguage = UiLanguage::en; });
    EXPECT_EQ(tray.menu[5].title, QStringLiteral("Turn Off MacBook Display"));
    EXPECT_TRUE(tray.menu[5].enabled);

    // Off a Mac the panel is the built-in display.
    display->panelName = DisplayControl::PanelName::builtInDisplay;
    menuBar->displayStateChanged();
    EXPECT_EQ(tray.menu[5].title, QStringLiteral("Turn Off Built-in Display"));
    configure([](MivoraSettings& s) { s.uiLanguage = UiLanguage::ru; });
    EXPECT_EQ(tray.menu[5].title, QStringLiteral("Выключить встроенный экран"));
}

TEST_F(MenuBarTest, HidingTheIconDropsTheEntryAndShowingItMakesANewOne)
{
    ASSERT_TRUE(tray.alive);
    configure([](MivoraSettings& s) { s.menuBarIconVisible = false; });
    EXPECT_FALSE(tray.alive);
    EXPECT_FALSE(menuBar->hasStatusItem());
    configure([](MivoraSettings& s) { s.menuBarIconVisible = true; });
    EXPECT_TRUE(tray.alive);
    EXPECT_EQ(tray.made, 2);
}

TEST_F(MenuBarTest, ARowOfAStaleMenuDoesNothingOnceTheControllerIsGone)
{
    const MenuModel stale = menuBar->makeMenu();
    menuBar.reset();
    stale.last().action();
    EXPECT_EQ(quits, 0);
}

namespace {

class FakeMainWindow : public MainWindowHost {
public:
    bool hasVisibleMainWindow() const override { return visible && !minimised; }
    void setActivationPolicy(ActivationPolicy next) override
    {
        policy = next;
        ++policyChanges;
    }
    void orderOut() override { visible = false; }
    void showAndActivate() override { visible = true; }

    bool visible = true;
    bool minimised = false;
    ActivationPolicy policy = ActivationPolicy::regular;
    int policyChanges = 0;
};

class AppDelegateTest : public ::testing::Test {
protected:
    TestClock clock;
    MemoryDefaultsStore defaults;
    FakeMainWindow window;
    bool trayHost = true;
    MivoraAppDelegate delegate{{clock, defaults, window, [this] { return trayHost; }}};
};

} // namespace

TEST_F(AppDelegateTest, ClosingHidesTheWindowAndChecksThePresenceWhileItGoes)
{
    EXPECT_TRUE(delegate.shouldStayInMenuBar()) << "both keys count as true when missing";
    EXPECT_FALSE(delegate.windowShouldClose());
    EXPECT_FALSE(window.visible);
    EXPECT_EQ(window.policy, ActivationPolicy::accessory);
    EXPECT_EQ(window.policyChanges, 1);

    // The re-checks at 0.05, 0.2 and 0.5 s each test the settings anew.
    clock.advance(50ms);
    EXPECT_EQ(window.policyChanges, 2);
    defaults.setValue(QStringLiteral("mivora.closeToMenuBar"), false);
    clock.advance(450ms);
    EXPECT_EQ(window.policyChanges, 2);
}

TEST_F(AppDelegateTest, WithoutAWayBackClosingReallyCloses)
{
    defaults.setValue(QStringLiteral("mivora.menuBarIconVisible"), false);
    EXPECT_TRUE(delegate.windowShouldClose());
    EXPECT_TRUE(delegate.applicationShouldTerminateAfterLastWindowClosed());

    defaults.remove(QStringLiteral("mivora.menuBarIconVisible"));
    trayHost = false;
    EXPECT_TRUE(delegate.windowShouldClose()) << "no tray host: hiding would leave no way back";

    trayHost = true;
    EXPECT_FALSE(delegate.applicationShouldTerminateAfterLastWindowClosed());
    delegate.applicationShouldTerminate();
    EXPECT_TRUE(delegate.windowShouldClose()) << "quitting from the menu closes the window for real";
}

TEST_F(AppDelegateTest, ThePolicyMendsItselfEverySecondAndTheWindowComesBack)
{
    delegate.start();
    window.minimised = true;
    clock.advance(999ms);
    EXPECT_EQ(window.policy, ActivationPolicy::regular);
    clock.advance(1ms);
    EXPECT_EQ(window.policy, ActivationPolicy::accessory) << "a minimised window counts as not visible";

    delegate.showMainWindow();
    window.minimised = false;
    EXPECT_EQ(window.policy, ActivationPolicy::regular);
    EXPECT_TRUE(window.visible);

    defaults.setValue(QStringLiteral("mivora.closeToMenuBar"), false);
    window.visible = false;
    const int changes = window.policyChanges;
    clock.advance(3s);
    EXPECT_EQ(window.policyChanges, changes) << "without staying in the tray the policy is left alone";
    delegate.stop();
}

TEST_F(AppDelegateTest, ThePlatformsOwnPresenceFollowsThePolicy)
{
    struct RecordingPresence : ApplicationPresence {
        void setRegular(bool next) override { regular = next; }
        void applyMainWindowTraits(quintptr) override {}
        std::optional<bool> regular;
    } presence;
    MivoraAppDelegate withPresence{{clock, defaults, window, [] { return true; }, &presence}};
    EXPECT_FALSE(withPresence.windowShouldClose());
    EXPECT_EQ(presence.regular, false);
    withPresence.showMainWindow();
    EXPECT_EQ(presence.regular, true);
}

TEST(AutostartEntryTest, WritesAQuotedEntryAndRemovesIt)
{
    QTemporaryDir home;
    AutostartEntry entry(home.path() + QStringLiteral("/autostart"), QStringLiteral("/opt/My Apps/mivora"));
    EXPECT_FALSE(entry.isEnabled());
    ASSERT_TRUE(entry.setEnabled(true));
    QFile file(entry.filePath());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray text = file.readAll();
    EXPECT_TRUE(text.startsWith("[Desktop Entry]\n"));
    EXPECT_TRUE(text.contains("Exec=\"/opt/My Apps/mivora\"\n"));
    EXPECT_TRUE(entry.setEnabled(false));
    EXPECT_FALSE(entry.isEnabled());
    EXPECT_TRUE(entry.setEnabled(false)) << "removing what is not there is no failure";
}
