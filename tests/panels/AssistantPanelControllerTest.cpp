#include "panels/AssistantPanelController.h"

#include "AIPanelFakes.h"
#include "QStringPrinting.h"
#include "panels/LanguageShortCode.h"

#include <gtest/gtest.h>

using namespace std::chrono_literals;

class AssistantPanelTest : public AIPanelHarness, public ::testing::Test {
protected:
    AssistantPanelTest() { followStatus(); }

    void openReply(const QString& message = QStringLiteral("  How are you?  "))
    {
        panel.showReply(message, state.aiReplyStyles().first(), QStringLiteral("German"));
        clock.runUntilIdle();
    }

    AssistantPanelController panel{{state, clock, ai, world, defaults}, surface()};
};

TEST_F(AssistantPanelTest, ChatSendsTheSelectionOnlyWhenTheContextIsOnAndKeepsOneSessionPerChat)
{
    panel.show(QStringLiteral("  Selected words 👍🏽 \n"));
    EXPECT_TRUE(panel.contextEnabled());
    EXPECT_TRUE(state.settings().aiContextEnabled) << "the context switch is persisted";
    panel.show(QStringLiteral("   "));
    EXPECT_EQ(panel.contextText(), u"Selected words 👍🏽") << "a blank context keeps the earlier one";
    EXPECT_EQ(panel.contextCharacterCount(), 16) << "the emoji with its skin tone is one character";

    panel.setRequestText(QStringLiteral(" Shorten it "));
    panel.run();
    const QString session = panel.assistantSessionId();
    EXPECT_EQ(session, session.toUpper());
    ASSERT_EQ(ai.sends.size(), 1);
    EXPECT_EQ(ai.sends[0].text, u"Selected text:\nSelected words 👍🏽\n\nRequest:\nShorten it");
    EXPECT_EQ(ai.sends[0].action, BackendAction::assistant);
    EXPECT_EQ(ai.sends[0].style.id, u"assistant");
    EXPECT_TRUE(ai.sends[0].assistantKeepContext);
    EXPECT_EQ(ai.sends[0].assistantSessionId, session);
    ASSERT_EQ(panel.turns().size(), 1);
    EXPECT_EQ(panel.turns()[0].request, u"Shorten it");
    EXPECT_TRUE(panel.requestText().isEmpty());

    panel.setContextEnabled(false);
    ai.script = {{QStringLiteral("offline"), 0ms, true}};
    panel.setRequestText(QStringLiteral("Again"));
    panel.run();
    EXPECT_EQ(ai.sends[1].text, u"Again");
    EXPECT_EQ(ai.sends[1].assistantSessionId, session);
    EXPECT_EQ(panel.errorText(), u"offline");
    EXPECT_EQ(panel.requestText(), u"Again") << "kept to send again";
    EXPECT_EQ(statuses().last(), ActionStatus::failed(QStringLiteral("offline")));

    panel.newChat();
    EXPECT_NE(panel.assistantSessionId(), session);
}

TEST_F(AssistantPanelTest, AnEmptyRequestAsksForOneInTheInterfaceLanguage)
{
    configure([](MivoraSettings& s) { s.uiLanguage = UiLanguage::ru; });
    panel.run();
    EXPECT_EQ(panel.errorText(), u"Введите запрос.");
    EXPECT_TRUE(ai.sends.isEmpty());
}

TEST_F(AssistantPanelTest, ALateAnswerLandsInTheNewChat)
{
    ai.script = {{QStringLiteral("late"), 1000ms}};
    panel.setRequestText(QStringLiteral("Question"));
    panel.run();
    clock.advance(500ms);
    panel.newChat();
    EXPECT_FALSE(panel.isRunning());
    EXPECT_TRUE(panel.turns().isEmpty());
    clock.advance(500ms);
    ASSERT_EQ(panel.turns().size(), 1);
    EXPECT_EQ(panel.resultText(), u"late");
}

TEST_F(AssistantPanelTest, AReplyIsDraftedOnceAndAReplyDuringARunningCallIsDropped)
{
    openReply();
    EXPECT_TRUE(panel.isReplyMode());
    EXPECT_EQ(ai.replies, QStringList{QStringLiteral("How are you?|") + state.aiReplyStyles().first().id +
                                      QStringLiteral("|German")});
    ASSERT_EQ(panel.turns().size(), 1);
    EXPECT_EQ(panel.turns()[0].request, u"How are you?");
    EXPECT_EQ(panel.resultText(), u"re:How are you?");
    EXPECT_EQ(statuses().last(), ActionStatus::done(QStringLiteral("Reply ready")));

    ai.script = {{QStringLiteral("slow"), 1000ms}};
    panel.regenerateReply();
    world.log.clear();
    panel.showReply(QStringLiteral("Other"), state.aiReplyStyles().last(), QStringLiteral("English"));
    EXPECT_TRUE(world.log.isEmpty()) << "no panel, no message";
    EXPECT_EQ(ai.replies.size(), 2);
    clock.advance(1000ms); // the slow call ends inside the test, so its frame is not left suspended
}

TEST_F(AssistantPanelTest, EmojisAndTranslationsReplaceTheLastTurnAndTranslationsStartFromTheReply)
{
    openReply();
    const QUuid first = panel.turns()[0].id;
    panel.selectReplyTranslationLanguage(QStringLiteral("French"));
    EXPECT_EQ(ai.sends.last().text, u"re:How are you?");
    EXPECT_EQ(ai.sends.last().targetLanguage, u"French");
    EXPECT_FALSE(ai.sends.last().retryOnUnchangedTranslation);
    panel.selectReplyTranslationLanguage(QStringLiteral("Spanish"));
    EXPECT_EQ(ai.sends.last().text, u"re:How are you?") << "never a translation of a translation";
    ASSERT_EQ(panel.turns().size(), 1);
    EXPECT_NE(panel.turns()[0].id, first);
    EXPECT_EQ(panel.turns()[0].result, u"re:re:How are you?");

    panel.addEmojisToReply();
    EXPECT_EQ(ai.sends.last().action, BackendAction::emoji);
    EXPECT_TRUE(ai.sends.last().style.prompt.startsWith(u"Add 1-3 relevant emojis"));
    EXPECT_EQ(panel.replyTranslationSource(), panel.resultText()) << "the emoji text is the new source";

    panel.newChat();
    panel.replaceLastReplyResult(QStringLiteral("x"));
    EXPECT_TRUE(panel.turns().isEmpty());
}

TEST_F(AssistantPanelTest, ATranslationOvertakenByANewerOneIsDropped)
{
    openReply();
    ai.script = {{QStringLiteral("stale"), 1000ms}};
    panel.translateReply();
    panel.newChat();
    openReply(QStringLiteral("Second message"));
    ai.script = {{QStringLiteral("fresh"), 200ms}};
    panel.translateReply();
    clock.advance(200ms);
    EXPECT_EQ(panel.resultText(), u"fresh");
    const qsizetype reports = statuses().size();
    clock.advance(1000ms);
    EXPECT_EQ(panel.resultText(), u"fresh");
    EXPECT_EQ(statuses().size(), reports) << "the stale answer touches nothing";
}

TEST_F(AssistantPanelTest, TheCheckMarkOfASecondCopySurvivesTheFirstTimer)
{
    openReply();
    panel.setRequestText(QStringLiteral("More"));
    panel.show({});
    panel.run();
    const auto turns = panel.turns();
    ASSERT_EQ(turns.size(), 2);
    panel.copyMessage(turns[0]);
    clock.advance(500ms);
    panel.copyMessage(turns[1]);
    clock.advance(600ms);
    EXPECT_EQ(panel.copiedTurnID(), turns[1].id);
    clock.advance(500ms);
    EXPECT_FALSE(panel.copiedTurnID());
    EXPECT_TRUE(world.log.contains(QStringLiteral("copy ") + turns[1].result));
}

TEST_F(AssistantPanelTest, PasteHidesThePanelAndGoesToTheRememberedChat)
{
    panel.pasteResult();
    EXPECT_EQ(statuses().last(), ActionStatus::failed(QStringLiteral("No app found for paste")));
    openReply();
    world.log.clear();
    panel.pasteResult();
    EXPECT_EQ(world.log, (QStringList{"order out", "reply paste re:How are you? into 42"}));
    EXPECT_EQ(statuses().last(), ActionStatus::done(QStringLiteral("Pasted")));
    world.remembered.reset();
    panel.pasteResult();
    EXPECT_EQ(statuses().last().kind, ActionStatus::Kind::failed);
}

TEST_F(AssistantPanelTest, ControlsAreEnabledByTheRunningGateAndTheTexts)
{
    struct Row {
        const char* request;
        const char* result;
        bool running;
        bool send;
        bool act;
    };
    for (const Row& row : {Row{"", "", false, false, false}, Row{" \n", " ", false, false, false},
                           Row{"ask", "reply", false, true, true}, Row{"ask", "reply", true, false, false}}) {
        panel.newChat();
        if (*row.result != 0) {
            ai.script = {{QString::fromUtf8(row.result), row.running ? 1000ms : 0ms}};
            panel.setRequestText(QStringLiteral("seed"));
            panel.run();
        }
        panel.setRequestText(QString::fromUtf8(row.request));
        SCOPED_TRACE(row.request);
        EXPECT_EQ(panel.canSend(), row.send);
        EXPECT_EQ(panel.canActOnReply(), row.act);
        clock.runUntilIdle();
    }
}

TEST(LanguageShortCodeTest, NamesGiveTwoCapitalLetters)
{
    for (const auto& [name, code] :
         std::initializer_list<std::pair<const char*, const char*>>{{"Chinese (Simplified)", "ZH"},
                                                                    {"Chinese (Traditional)", "ZH"},
                                                                    {"Filipino", "TL"},
                                                                    {"English", "EN"},
                                                                    {"german", "DE"},
                                                                    {"Japanese", "JA"},
                                                                    {"Ukrainian", "UK"},
                                                                    {"Klingonish", "KL"}}) {
        EXPECT_EQ(LanguageShortCode::of(QString::fromUtf8(name)), QString::fromUtf8(code)) << name;
    }
}
