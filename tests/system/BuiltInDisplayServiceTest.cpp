#include "system/BuiltInDisplayService.h"

#include "CapturedLog.h"
#include "FakeDisplayControl.h"
#include "FakeSystemBell.h"
#include "MemoryDefaultsStore.h"
#include "TestClock.h"

#include <QStringList>
#include <gtest/gtest.h>

namespace {
using namespace std::chrono_literals;

constexpr DisplayIdentifier panel = 1;
constexpr DisplayIdentifier left = 2;
constexpr DisplayIdentifier right = 3;

class BuiltInDisplayServiceTest : public ::testing::Test {
protected:
    void SetUp() override { displays.screens = {{panel, {true}}, {left, {}}}; }

    bool panelIsOn() const { return displays.screens[panel].active; }
    bool keyStored() const { return defaults.contains(BuiltInDisplayService::disabledDisplayKey); }

    void switchOff()
    {
        service.disableBuiltIn();
        ASSERT_FALSE(panelIsOn());
        ASSERT_EQ(service.disabledDisplayID(), panel);
        ASSERT_EQ(defaults.value(BuiltInDisplayService::disabledDisplayKey).toUInt(), panel);
    }

    TestClock clock;
    MemoryDefaultsStore defaults;
    FakeDisplayControl displays;
    FakeSystemBell bell;
    BuiltInDisplayService service{displays, defaults, clock, bell};
    CapturedLog captured;
    QStringList& log = captured.lines;
};

TEST_F(BuiltInDisplayServiceTest, RefusesWithTheBellUnlessAnotherDisplayIsAwakeAndNothingMirrors)
{
    const std::vector<std::pair<const char*, std::function<void(FakeDisplayControl&)>>> cases = {
        {"no external display", [](FakeDisplayControl& d) { d.screens.remove(left); }},
        {"the external asleep", [](FakeDisplayControl& d) { d.screens[left].asleep = true; }},
        {"the external offline", [](FakeDisplayControl& d) { d.screens[left].online = false; }},
        {"the panel mirrored", [](FakeDisplayControl& d) { d.screens[panel].mirrored = true; }},
        {"no panel active", [](FakeDisplayControl& d) { d.screens[panel].active = false; }},
        {"no way to switch", [](FakeDisplayControl& d) { d.canSwitch = false; }},
    };
    for (const auto& [name, setUp] : cases) {
        FakeDisplayControl scripted;
        scripted.screens = {{panel, {true}}, {left, {}}};
        setUp(scripted);
        FakeSystemBell refusals;
        BuiltInDisplayService refusing(scripted, defaults, clock, refusals);
        refusing.disableBuiltIn();
        EXPECT_EQ(refusals.rings, 1) << name;
        EXPECT_TRUE(scripted.switches.isEmpty()) << name;
        EXPECT_FALSE(refusing.disabledDisplayID()) << name;
        EXPECT_FALSE(keyStored()) << name;
    }
}

TEST_F(BuiltInDisplayServiceTest, TheToggleSwitchesOffAndOnAndTellsEachChange)
{
    int changes = 0;
    QObject::connect(&service, &BuiltInDisplayService::changed, [&] { ++changes; });
    service.enableBuiltIn();
    EXPECT_TRUE(displays.switches.isEmpty()) << "nothing was off";

    service.toggle();
    EXPECT_FALSE(panelIsOn());
    EXPECT_TRUE(service.offersBuiltInDisplay());
    service.toggle();
    EXPECT_TRUE(panelIsOn());
    EXPECT_FALSE(keyStored());
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(clock.pendingCount(), 0U) << "no watchdog while the panel is on";
    EXPECT_EQ(bell.rings, 0);
}

// The panel comes back at once when the last external display is reported gone, even while the active
// list still names it; the panel's own notices never count as an external display's.
TEST_F(BuiltInDisplayServiceTest, UnpluggingTheOnlyExternalDisplayRestoresThePanelAtOnce)
{
    switchOff();
    displays.announce(panel, true, false);
    clock.advance(0ms);
    EXPECT_FALSE(panelIsOn());

    displays.announce(left, true, false);
    clock.advance(0ms);
    EXPECT_TRUE(panelIsOn());
    EXPECT_FALSE(service.disabledDisplayID());
    EXPECT_FALSE(keyStored());
    EXPECT_EQ(clock.pendingCount(), 0U);
}

TEST_F(BuiltInDisplayServiceTest, TheWatchdogRestoresThePanelWhenTheExternalSleepsWithoutANotice)
{
    switchOff();
    displays.screens[left].asleep = true;
    clock.advance(1999ms);
    EXPECT_FALSE(panelIsOn());
    clock.advance(1ms);
    EXPECT_TRUE(panelIsOn());
}

TEST_F(BuiltInDisplayServiceTest, RemovedDisplaysStopCountingUntilTheyAreAddedAgain)
{
    displays.screens.insert(right, {});
    switchOff();
    displays.announce(left, true, false);
    clock.advance(10s);
    EXPECT_FALSE(panelIsOn()) << "the other external display keeps the panel off";

    // Replugged, the left display counts again, so losing the right one leaves the panel off.
    displays.announce(left, false, true);
    displays.announce(right, true, false);
    clock.advance(0ms);
    EXPECT_FALSE(panelIsOn());
    displays.announce(left, true, false);
    clock.advance(0ms);
    EXPECT_TRUE(panelIsOn());
}

TEST_F(BuiltInDisplayServiceTest, AFailedSwitchOnIsLoggedKeepsTheStateAndTheWatchdogTriesAgain)
{
    switchOff();
    displays.failures = {{DisplaySwitchFailure::Stage::configure, -7},
                         {DisplaySwitchFailure::Stage::complete, 3}};
    displays.announce(left, true, false);
    clock.advance(0ms);
    EXPECT_EQ(service.disabledDisplayID(), panel);
    EXPECT_TRUE(keyStored());
    clock.advance(2s);
    EXPECT_EQ(service.disabledDisplayID(), panel);
    clock.advance(2s);
    EXPECT_TRUE(panelIsOn());
    EXPECT_FALSE(keyStored());
    EXPECT_EQ(log, (QStringList{"MivoraAI built-in display: configure true failed -7",
                                "MivoraAI built-in display: complete true result 3"}));
}

TEST_F(BuiltInDisplayServiceTest, AFailedSwitchOffStoresNothingAndRingsNoBell)
{
    displays.failures = {{DisplaySwitchFailure::Stage::configure, 5}};
    service.disableBuiltIn();
    EXPECT_FALSE(service.disabledDisplayID());
    EXPECT_FALSE(keyStored());
    EXPECT_EQ(bell.rings, 0);
    EXPECT_EQ(log, QStringList{"MivoraAI built-in display: configure false failed 5"});
}

// Ids need not survive a restart of the display server: a stored id that names no built-in panel brings
// back every panel that is off. The key goes in every case.
TEST_F(BuiltInDisplayServiceTest, ThePanelComesBackAtTheNextLaunch)
{
    struct Case {
        const char* name;
        QVariant stored;
        bool panelWasOff;
        QList<std::pair<DisplayIdentifier, bool>> switches;
    };
    const std::vector<Case> cases = {
        {"the stored panel", panel, true, {{panel, true}}},
        {"a stale id", 99, true, {{99, true}, {panel, true}}},
        {"an id now of an external display", left, true, {{left, true}, {panel, true}}},
        {"no key", QVariant(), false, {}},
    };
    for (const Case& c : cases) {
        FakeDisplayControl scripted;
        scripted.screens = {{panel, {true, !c.panelWasOff}}, {left, {}}};
        MemoryDefaultsStore stored;
        if (c.stored.isValid()) {
            stored.setValue(BuiltInDisplayService::disabledDisplayKey, c.stored);
        }
        BuiltInDisplayService launched(scripted, stored, clock, bell);
        launched.restoreAfterPreviousLaunch();
        EXPECT_EQ(scripted.switches, c.switches) << c.name;
        EXPECT_TRUE(scripted.screens[panel].active) << c.name;
        EXPECT_FALSE(stored.contains(BuiltInDisplayService::disabledDisplayKey)) << c.name;
        EXPECT_FALSE(launched.disabledDisplayID()) << c.name;
    }
}
} // namespace
