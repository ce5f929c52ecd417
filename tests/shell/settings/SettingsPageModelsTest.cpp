#include "AppStateHarness.h"
#include "FakePasteboard.h"
#include "clipboard/ClipboardHistoryService.h"
#include "shell/settings/ActionsSettingsModel.h"
#include "shell/settings/ClipboardSettingsModel.h"
#include "shell/settings/LayoutSettingsModel.h"
#include "shell/settings/QuickMenuSettingsModel.h"
#include "shell/settings/ShortcutsSettingsModel.h"
#include "shell/settings/StyleCatalogueSettingsModel.h"
#include "text/BackendClientError.h"

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {

class SettingsPageModelsTest : public AppStateHarness, public ::testing::Test {
protected:
    int limitAfterSteps(int stored, int direction, int steps)
    {
        configure([&](MivoraSettings& s) { s.clipboardLimit = stored; });
        for (int i = 0; i < steps; ++i) {
            clipboard.step(direction);
        }
        return state.settings().clipboardLimit;
    }

    FakePasteboard pasteboard;
    ClipboardHistoryService history{pasteboard, clock, defaults};
    ClipboardSettingsModel clipboard{state, history};
    LayoutSettingsModel layouts{state, layout};
    QuickMenuSettingsModel quickMenu{state};
    StyleCatalogueSettingsModel catalogue{state};
};

TEST_F(SettingsPageModelsTest, TheLimitStepsWithinTenToFiveHundredAndTheTextsFollowTheLanguage)
{
    // Kept days show "forever" in the interface language and a number as stored.
    EXPECT_EQ(clipboard.daysText(), QStringLiteral("forever"));
    configure([](MivoraSettings& s) { s.uiLanguage = UiLanguage::ru; });
    EXPECT_EQ(clipboard.daysText(), QStringLiteral("всегда"));
    EXPECT_EQ(clipboard.limitText(), QStringLiteral("Лимит истории: 100"));
    configure([](MivoraSettings& s) { s.clipboardDays = QStringLiteral("7"); });
    EXPECT_EQ(clipboard.daysText(), QStringLiteral("7"));
    configure([](MivoraSettings& s) { s.uiLanguage = UiLanguage::en; });

    // Loading accepts 1…1000; the stepper cannot reach 5 or 1000, yet shows and keeps them.
    configure([](MivoraSettings& s) { s.clipboardLimit = 5; });
    EXPECT_EQ(clipboard.limitText(), QStringLiteral("History limit: 5"));
    EXPECT_FALSE(clipboard.canStep(-1));
    EXPECT_EQ(limitAfterSteps(5, -1, 1), 5);
    EXPECT_EQ(limitAfterSteps(5, +1, 1), 10);
    EXPECT_EQ(limitAfterSteps(1000, +1, 1), 1000);
    EXPECT_EQ(limitAfterSteps(1000, -1, 1), 500);
    EXPECT_EQ(limitAfterSteps(11, -1, 3), 10);
    EXPECT_EQ(limitAfterSteps(498, +1, 5), 500);
    EXPECT_EQ(limitAfterSteps(100, +1, 1), 101);
}

TEST_F(SettingsPageModelsTest, PutBackPlacesTheItemOnTheClipboardAndReportsPasted)
{
    history.record(QStringLiteral("first text"));
    history.record(QStringLiteral("second text"));
    clipboard.putBack(history.items().last().id);
    EXPECT_EQ(pasteboard.text(), QStringLiteral("first text"));
    EXPECT_EQ(state.status(), ActionStatus::done(QStringLiteral("Pasted")));
    // An item gone meanwhile puts nothing back.
    clipboard.remove(history.items().last().id);
    clipboard.putBack(QStringLiteral("gone"));
    EXPECT_EQ(history.items().size(), 1);
    EXPECT_EQ(pasteboard.text(), QStringLiteral("first text"));
}

TEST_F(SettingsPageModelsTest, DetectOffersThePlatformLayoutsAndAssignsBothInTwoSaves)
{
    sources.addSource(FakeInputSourceProvider::layout("Ukrainian", "ua", u"й"));
    sources.addSource(FakeInputSourceProvider::layout("English (US)", "us", u"q"));
    configure([](MivoraSettings& s) {
        s.layoutLatinSource = QStringLiteral("ABC");
        s.layoutNativeSource = QStringLiteral("Русская — ПК");
    });
    int saves = 0;
    QObject::connect(&state, &MivoraAppState::settingsChanged, [&] { ++saves; });

    layouts.detect();

    EXPECT_EQ(layouts.layoutNames(), (QStringList{"Ukrainian", "English (US)"}));
    EXPECT_EQ(state.settings().layoutLatinSource, QStringLiteral("English (US)"));
    EXPECT_EQ(state.settings().layoutNativeSource, QStringLiteral("Ukrainian"));
    EXPECT_EQ(saves, 2);
    // A stored name the platform lacks stays on offer, so showing it never changes it.
    EXPECT_EQ(layouts.choicesShowing(QStringLiteral("Dvorak")),
              (QStringList{"Dvorak", "Ukrainian", "English (US)"}));
}

TEST_F(SettingsPageModelsTest, AddingAnApplicationReplacesItsRuleInPlaceOrAppendsAndSwitchesRulesOn)
{
    sources.setCurrent(sources.addSource(FakeInputSourceProvider::layout("Russian", "ru", u"й")));
    const AppLayoutRule first{QUuid::createUuid(), "Editor", "Editor", "/a/editor.desktop", "U.S.", false};
    const AppLayoutRule second{QUuid::createUuid(), "Term", "Term", "/a/term.desktop", "U.S.", true};
    configure([&](MivoraSettings& s) {
        s.appLayoutRules = {first, second};
        s.appLayoutSwitchingEnabled = false;
    });

    // Nothing chosen, or an entry without an identifier: nothing at all.
    layouts.addApplication(std::nullopt);
    layouts.addApplication(InstalledApplication{QString(), "Broken", QString(), "/a/broken.desktop"});
    EXPECT_EQ(state.settings().appLayoutRules, (QList<AppLayoutRule>{first, second}));
    EXPECT_FALSE(state.settings().appLayoutSwitchingEnabled);

    layouts.addApplication(InstalledApplication{"Editor", "New Editor", "edit", "/b/editor.desktop"});
    const QList<AppLayoutRule> replaced = state.settings().appLayoutRules;
    ASSERT_EQ(replaced.size(), 2);
    EXPECT_EQ(replaced[0].appName, QStringLiteral("New Editor"));
    EXPECT_EQ(replaced[0].appPath, QStringLiteral("/b/editor.desktop"));
    EXPECT_EQ(replaced[0].layoutName, QStringLiteral("Russian"));
    EXPECT_TRUE(replaced[0].isEnabled);
    EXPECT_EQ(replaced[1], second);
    EXPECT_TRUE(state.settings().appLayoutSwitchingEnabled);

    layouts.addApplication(InstalledApplication{"Viewer", "Viewer", QString(), "/a/viewer.desktop"});
    ASSERT_EQ(state.settings().appLayoutRules.size(), 3);
    EXPECT_EQ(state.settings().appLayoutRules[2].bundleIdentifier, QStringLiteral("Viewer"));

    layouts.removeRule(first.id);
    layouts.removeRule(replaced[0].id);
    EXPECT_EQ(state.settings().appLayoutRules.size(), 2);
}

TEST_F(SettingsPageModelsTest, QuickMenuOrderKeepsAvailableIdsOnceAndAppendsTheRest)
{
    configure([](MivoraSettings& s) {
        s.quickMenuOrder = {"layout", " style:friendly ", "gone", "layout", "style:translate", "ai"};
    });
    const QStringList available = quickMenu.availableActionIds();
    EXPECT_EQ(available.size(), 2 + 16 + 2);
    EXPECT_FALSE(available.contains("style:translate"));
    const QStringList ordered = quickMenu.orderedActions();
    EXPECT_EQ(ordered.mid(0, 4), (QStringList{"layout", "style:friendly", "ai", "translate"}));
    EXPECT_EQ(ordered.last(), "clipboard");
    EXPECT_EQ(ordered.size(), available.size());
}

TEST_F(SettingsPageModelsTest, SwitchingAnActionOffKeepsItsPlaceAndMovesSortTheEnabledList)
{
    configure([](MivoraSettings& s) {
        s.quickMenuOrder = {"translate", "ai", "layout"};
        s.quickMenuActions = {"layout", "ai"};
    });
    quickMenu.setAction("ai", false);
    EXPECT_EQ(state.settings().quickMenuActions, QStringList{"layout"});
    quickMenu.setAction("ai", true);
    EXPECT_EQ(state.settings().quickMenuActions, (QStringList{"ai", "layout"}));
    EXPECT_EQ(quickMenu.orderedActions().mid(0, 3), (QStringList{"translate", "ai", "layout"}));

    const int saves = defaults.writeCount();
    quickMenu.moveAction(0, -1);
    quickMenu.moveAction(quickMenu.orderedActions().size() - 1, +1);
    EXPECT_EQ(defaults.writeCount(), saves);
    quickMenu.moveAction(2, -1);
    EXPECT_EQ(state.settings().quickMenuOrder.mid(0, 3), (QStringList{"translate", "layout", "ai"}));
    EXPECT_EQ(state.settings().quickMenuActions, (QStringList{"layout", "ai"}));
}

TEST_F(SettingsPageModelsTest, ResetsBringTheCataloguesBackAndLeaveTheQuickMenuIds)
{
    state.addPromptStyle();
    const QString custom = "style:" + state.promptStyles().last().id;
    ASSERT_TRUE(state.settings().quickMenuActions.contains(custom));
    PromptStyle changed = state.promptStyles().first();
    changed.prompt = "Changed";
    state.updatePromptStyle(changed);

    catalogue.resetPromptStyles();
    EXPECT_EQ(state.promptStyles().size(), 17);
    EXPECT_NE(state.promptStyles().first().prompt, "Changed");
    EXPECT_TRUE(state.settings().quickMenuActions.contains(custom));
    configure([](MivoraSettings& s) { s.uiLanguage = UiLanguage::ru; });
    EXPECT_EQ(state.title(QuickAction(custom)), "Действие");

    state.addAIReplyStyle();
    catalogue.resetAIReplyStyles();
    EXPECT_EQ(state.aiReplyStyles().size(), 17);
    EXPECT_EQ(StyleCatalogueSettingsModel::replyHint(UiLanguage::ru, "Super", "Alt"),
              "Выделите сообщение и нажмите Super + Alt с клавишей стиля ответа.");
}

TEST_F(SettingsPageModelsTest, ATestRunOfAnEmptyInputFailsWithTheBackendsTextAndKeepsTheInput)
{
    ActionsSettingsModel actions(state);
    for (const QuickAction& action : actions.runnableActions()) {
        EXPECT_NE(action.id, "ai");
        EXPECT_NE(action.id, "clipboard");
        EXPECT_NE(action.id, "layout");
    }
    EXPECT_EQ(actions.runnableActions().first().id, "translate");

    backend.answer = [](const QString& input) -> QString {
        if (input.trimmed().isEmpty()) {
            throw BackendClientError::emptyInput();
        }
        return input.toUpper();
    };
    state.setSampleText("  ");
    actions.run(QuickAction("translate"));
    clock.advance(10ms);
    EXPECT_EQ(state.status(), ActionStatus::failed("No text to process."));
    EXPECT_EQ(state.sampleText(), "  ");

    state.setSampleText("hi");
    actions.run(QuickAction("style:friendly"));
    clock.advance(10ms);
    EXPECT_EQ(state.sampleText(), "HI");
    EXPECT_EQ(state.latestOutput(), "HI");
}

TEST_F(SettingsPageModelsTest, ShortcutRowsNameEveryTilingIdAndOfferTheDisplayOnlyWhenAsked)
{
    bool display = false;
    ShortcutsSettingsModel shortcuts(state, {[&display] { return display; }});
    EXPECT_EQ(shortcuts.tilingIds().size(), 13);
    display = true;
    EXPECT_EQ(shortcuts.tilingIds().last(), "builtInDisplay");
    EXPECT_EQ(ShortcutsSettingsModel(state, {}).tilingIds().size(), 13);
    for (const QString& id : WindowTilingHotkeys::registrationOrder()) {
        EXPECT_NE(shortcuts.tilingText(id, UiLanguage::en).title, id);
    }
    EXPECT_EQ(shortcuts.tilingText("full", UiLanguage::ru).subtitle, "Активное окно");

    configure([](MivoraSettings& s) { s.windowTilingHotkeys.remove("fill"); });
    EXPECT_EQ(shortcuts.tilingHotkey("fill"), "Not assigned");
    shortcuts.setStyleHotkey("humor", "Alt+H");
    EXPECT_EQ(state.promptStyles()[7].hotkey, "Alt+H");
}

// The rows that name the panel, the key of the drag swap and the tab pop-out follow the platform; the
// defaults are macOS's.
TEST_F(SettingsPageModelsTest, TilingRowsNameThePlatformsOwnPanelKeyAndBrowser)
{
    const ShortcutsSettingsModel mac(state, {});
    const ShortcutsSettingsModel pc(state, {{}, DisplayControl::PanelName::builtInDisplay, "Alt", false});
    struct Case {
        const ShortcutsSettingsModel& model;
        const char* id;
        UiLanguage language;
        const char* title;
        const char* subtitle;
    };
    const std::vector<Case> cases = {
        {mac, "builtInDisplay", UiLanguage::en, "MacBook display on/off",
         "Turns off the built-in screen while an external monitor is connected"},
        {pc, "builtInDisplay", UiLanguage::en, "Built-in display on/off",
         "Turns off the built-in screen while an external monitor is connected"},
        {pc, "builtInDisplay", UiLanguage::ru, "Встроенный экран вкл/выкл",
         "Выключает встроенный экран, пока подключён внешний монитор"},
        {mac, "swapLeft", UiLanguage::en, "Swap with window on the left",
         "Active window trades places with its neighbour. Or drag a window onto another with Option held"},
        {pc, "swapUp", UiLanguage::ru, "Обмен с окном сверху",
         "Активное окно меняется местами с соседним. Или перетащите окно на другое с зажатым Alt"},
        {mac, "leftHalf", UiLanguage::ru, "Левая половина",
         "Активное окно. В Chrome вкладка открывается отдельным окном без адресной строки"},
        {pc, "rightHalf", UiLanguage::en, "Right half", "Active window"},
    };
    for (const Case& c : cases) {
        const ShortcutsSettingsModel::RowText text = c.model.tilingText(c.id, c.language);
        EXPECT_EQ(text.title, QString::fromUtf8(c.title)) << c.id;
        EXPECT_EQ(text.subtitle, QString::fromUtf8(c.subtitle)) << c.id;
    }
}

} // namespace
