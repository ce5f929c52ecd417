#include "core/SettingsService.h"

#include "MemoryDefaultsStore.h"
#include "core/NativeSettingsStore.h"

#include <gtest/gtest.h>

namespace {

class SettingsServiceTest : public ::testing::Test {
protected:
    SettingsServiceTest()
    {
        QObject::connect(&service, &SettingsService::changed, [this] { ++announcements; });
    }

    void assign(const std::function<void(MivoraSettings&)>& change)
    {
        MivoraSettings next = service.settings();
        change(next);
        service.assign(next);
    }
    // Saves since the last call; one save writes every key once.
    int savesSince()
    {
        const int writes = defaults.writeCount() - m_writesBefore;
        m_writesBefore = defaults.writeCount();
        return writes / m_writesPerSave;
    }

    MemoryDefaultsStore defaults;
    NativeSettingsStore store{defaults};
    SettingsService service{store};
    int announcements = 0;

private:
    int m_writesPerSave = [this] {
        store.save(MivoraSettings{});
        return defaults.writeCount();
    }();
    int m_writesBefore = defaults.writeCount();
};

TEST_F(SettingsServiceTest, AssignmentSavesOnceAndRefreshesTheCopies)
{
    assign([](MivoraSettings& s) {
        s.targetLanguage = "German";
        s.quickMenuActions = {" fix ", "layout"};
        s.promptStyles.append(PromptStyle{"custom-1", "Mine", "p", "Not assigned", true});
    });
    EXPECT_EQ(savesSince(), 1);
    EXPECT_EQ(announcements, 1);
    EXPECT_EQ(service.targetLanguage(), "German");
    EXPECT_EQ(service.quickActions(),
              (QList<QuickAction>{QuickAction("style:original"), QuickAction("layout")}));
    EXPECT_EQ(service.promptStyles().last().id, "custom-1");

    // A second service made from the same store sees what was saved.
    SettingsService reloaded(store);
    EXPECT_EQ(reloaded.targetLanguage(), "German");
    EXPECT_EQ(reloaded.promptStyles().last().name, "Mine");
}

TEST_F(SettingsServiceTest, EachStyleEditSavesOnceAndCustomStylesJoinAndLeaveTheQuickMenu)
{
    assign([](MivoraSettings& s) { s.uiLanguage = UiLanguage::ru; });
    savesSince();
    service.addPromptStyle();
    EXPECT_EQ(savesSince(), 1);
    const PromptStyle added = service.settings().promptStyles.last();
    EXPECT_TRUE(added.id.startsWith("custom-"));
    EXPECT_EQ(added.id.size(), 15);
    EXPECT_EQ(added.name, "Новый стиль");
    const QString actionId = "style:" + added.id;
    EXPECT_EQ(service.settings().quickMenuActions.last(), actionId);
    EXPECT_EQ(service.settings().quickMenuOrder.last(), actionId);

    // Entries are compared in normal form: "style:<id>" goes, while a bare custom id is another action.
    assign([&](MivoraSettings& s) { s.quickMenuOrder.append(added.id); });
    savesSince();
    service.deletePromptStyle(added);
    EXPECT_EQ(savesSince(), 1);
    EXPECT_FALSE(service.settings().quickMenuActions.contains(actionId));
    EXPECT_FALSE(service.settings().quickMenuOrder.contains(actionId));
    EXPECT_TRUE(service.settings().quickMenuOrder.contains(added.id));
    EXPECT_EQ(service.settings().promptStyles.size(), 17);

    // Reply styles stay out of the quick menu.
    const QStringList menu = service.settings().quickMenuActions;
    service.addAIReplyStyle();
    EXPECT_EQ(service.settings().aiReplyStyles.last().name, "Новый стиль ответа");
    service.deleteAIReplyStyle(service.settings().aiReplyStyles.last());
    EXPECT_EQ(savesSince(), 2);
    EXPECT_EQ(service.settings().quickMenuActions, menu);
    EXPECT_EQ(announcements, 6);
}

TEST_F(SettingsServiceTest, EditsThatChangeNothingSaveNothing)
{
    // Built-ins cannot be deleted, even after an edit; a style that is gone cannot be updated.
    PromptStyle fix = service.settings().promptStyles.first();
    fix.prompt = "edited";
    service.updatePromptStyle(fix);
    EXPECT_EQ(savesSince(), 1);
    service.deletePromptStyle(fix);
    service.deleteAIReplyStyle(service.settings().aiReplyStyles.first());
    service.updatePromptStyle(PromptStyle{"custom-gone", "", "", "", true});
    service.updateAIReplyStyle(AIReplyStyle{"custom-reply-gone", "", "", ""});
    EXPECT_EQ(savesSince(), 0);
    EXPECT_EQ(service.settings().promptStyles.first().prompt, "edited");
    EXPECT_EQ(service.settings().aiReplyStyles.size(), 17);
}

} // namespace
