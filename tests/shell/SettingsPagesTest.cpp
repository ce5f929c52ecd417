#include "AppStateHarness.h"
#include "shell/settings/ActionsSettingsModel.h"
#include "shell/settings/QuickMenuSettingsModel.h"
#include "shell/settings/ShortcutsSettingsModel.h"
#include "shell/settings/StyleCatalogueSettingsModel.h"
#include "text/BackendClientError.h"

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {

class SettingsPagesTest : public AppStateHarness, public ::testing::Test {
protected:
    QuickMenuSettingsModel quickMenu{state};
    StyleCatalogueSettingsModel catalogue{state};
};

} // namespace

TEST_F(SettingsPagesTest, QuickMenuOrderKeepsAvailableIdsOnceAndAppendsTheRest)
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

TEST_F(SettingsPagesTest, SwitchingAnActionOffKeepsItsPlaceAndMovesSortTheEnabledList)
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

TEST_F(SettingsPagesTest, ResetsBringTheCataloguesBackAndLeaveTheQuickMenuIds)
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

TEST_F(SettingsPagesTest, ATestRunOfAnEmptyInputFailsWithTheBackendsTextAndKeepsTheInput)
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

TEST_F(SettingsPagesTest, ShortcutRowsNameEveryTilingIdAndOfferTheDisplayOnlyWhenAsked)
{
    bool display = false;
    ShortcutsSettingsModel shortcuts(state, [&display] { return display; });
    EXPECT_EQ(shortcuts.tilingIds().size(), 13);
    display = true;
    EXPECT_EQ(shortcuts.tilingIds().last(), "builtInDisplay");
    EXPECT_EQ(ShortcutsSettingsModel(state, {}).tilingIds().size(), 13);
    for (const QString& id : WindowTilingHotkeys::registrationOrder()) {
        EXPECT_NE(ShortcutsSettingsModel::tilingText(id, UiLanguage::en).title, id);
    }
    EXPECT_EQ(ShortcutsSettingsModel::tilingText("full", UiLanguage::ru).subtitle, "Активное окно");
    EXPECT_EQ(ShortcutsSettingsModel::tilingText("swapUp", UiLanguage::en).subtitle.left(12), "Active windo");

    configure([](MivoraSettings& s) { s.windowTilingHotkeys.remove("fill"); });
    EXPECT_EQ(shortcuts.tilingHotkey("fill"), "Not assigned");
    shortcuts.setTilingHotkey("fill", "Control+Alt+F");
    EXPECT_EQ(state.settings().windowTilingHotkeys.value("fill"), "Control+Alt+F");
    shortcuts.setStyleHotkey("humor", "Alt+H");
    EXPECT_EQ(state.promptStyles()[7].hotkey, "Alt+H");
}
