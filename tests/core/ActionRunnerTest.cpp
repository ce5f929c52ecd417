#include "core/ActionRunner.h"

#include "FakeInputSourceProvider.h"
#include "FakeTextActionService.h"
#include "FakeTextExchange.h"
#include "MemoryDefaultsStore.h"
#include "TestClock.h"
#include "core/NativeSettingsStore.h"
#include "core/SettingsService.h"
#include "core/StatusService.h"
#include "text/KeyboardLayoutService.h"

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {

class ActionRunnerTest : public ::testing::Test {
protected:
    ActionRunnerTest()
    {
        QObject::connect(&status, &StatusService::statusChanged,
                         [this] { statuses << status.status().text; });
    }
    void run(const char* action, bool pasteResult, bool updateSampleText)
    {
        runner->run(QuickAction(QString::fromUtf8(action)), pasteResult, updateSampleText);
    }
    void edit(const std::function<void(MivoraSettings&)>& change)
    {
        MivoraSettings next = settings.settings();
        change(next);
        settings.assign(next);
    }

    TestClock clock;
    MemoryDefaultsStore defaults;
    NativeSettingsStore store{defaults};
    SettingsService settings{store};
    StatusService status{clock};
    FakeInputSourceProvider sources;
    KeyboardLayoutService layout{sources};
    FakeTextActionService backend{clock};
    FakeTextExchange exchange{clock};
    QString sampleText = QStringLiteral("hello there");
    QString latestOutput;
    QStringList statuses;
    std::unique_ptr<ActionRunner> runner =
        std::make_unique<ActionRunner>(ActionRunner::Services{settings, status, layout, backend, exchange},
                                       ActionRunner::Texts{[this] { return sampleText; },
                                                           [this](const QString& output, bool updateSample) {
                                                               latestOutput = output;
                                                               sampleText =
                                                                   updateSample ? output : sampleText;
                                                           }});
};

TEST_F(ActionRunnerTest, SampleRunOfAStyleNeverTouchesOtherApplications)
{
    backend.duration = 250ms;
    run("style:polite", false, true);
    clock.advance(249ms);
    EXPECT_EQ(status.status(), ActionStatus::running("Polite running"));
    clock.advance(1ms);

    EXPECT_EQ(statuses, (QStringList{"Polite running", "Polite running", "HELLO THERE"}));
    EXPECT_EQ(status.status(), ActionStatus::done("HELLO THERE"));
    EXPECT_TRUE(exchange.reads.isEmpty());
    EXPECT_TRUE(exchange.pastes.isEmpty());
    ASSERT_EQ(backend.calls.size(), 1);
    EXPECT_EQ(backend.calls[0].input, "hello there");
    EXPECT_EQ(backend.calls[0].targetLanguage, "English");
    EXPECT_EQ(backend.calls[0].styles, settings.promptStyles());
    EXPECT_EQ(latestOutput, "HELLO THERE");
    EXPECT_EQ(sampleText, "HELLO THERE");
    clock.advance(900ms);
    EXPECT_EQ(status.status(), ActionStatus::idle()) << "published with its reset";
}

TEST_F(ActionRunnerTest, PastedStyleRunReadsSelectsAllAndPastesWithStandardTiming)
{
    edit([](MivoraSettings& s) { s.uiLanguage = UiLanguage::ru; });
    exchange.selection = "text";
    exchange.readDuration = 600ms;
    exchange.pasteDuration = 1500ms;
    run("style:friendly", true, false);
    clock.advance(600ms);
    clock.advance(1500ms);

    // The third status is the fixed title with the English word, whatever the interface language.
    EXPECT_EQ(statuses, (QStringList{"Выполняю: Дружелюбно", "Читаю выделение", "Дружелюбно running",
                                     "Вставляю", "Вставлено"}));
    ASSERT_EQ(exchange.reads.size(), 1);
    EXPECT_TRUE(exchange.reads[0].selectAllBeforeCopy);
    EXPECT_TRUE(exchange.reads[0].includeFocusedTextFallback);
    EXPECT_EQ(exchange.reads[0].timing, PasteboardTiming::standardTiming());
    ASSERT_EQ(exchange.pastes.size(), 1);
    EXPECT_EQ(exchange.pastes[0].text, "TEXT");
    EXPECT_FALSE(exchange.pastes[0].target.has_value());
    EXPECT_EQ(exchange.pastes[0].timing, PasteboardTiming::standardTiming());
    EXPECT_EQ(sampleText, "hello there");

    edit([](MivoraSettings& s) { s.autoSelectAllBeforeAction = false; });
    run("translate", true, false);
    clock.advance(5s);
    EXPECT_FALSE(exchange.reads[1].selectAllBeforeCopy);
}

TEST_F(ActionRunnerTest, FailuresKeepOutputsAndResetAfterTheirDelay)
{
    sampleText = "keep";
    run("style:short", false, true);
    ASSERT_EQ(latestOutput, "KEEP");

    backend.error = "Backend returned HTTP 500.";
    run("style:short", false, true);
    EXPECT_EQ(status.status(), ActionStatus::failed("Backend returned HTTP 500."));
    EXPECT_EQ(latestOutput, "KEEP");
    EXPECT_EQ(sampleText, "KEEP");
    clock.advance(1300ms);
    EXPECT_EQ(status.status(), ActionStatus::idle());

    backend.error.reset();
    exchange.readError = "No selected text.";
    run("style:short", true, false);
    EXPECT_EQ(status.status(), ActionStatus::failed("No selected text."));
    EXPECT_TRUE(exchange.pastes.isEmpty());

    exchange.readError.reset();
    exchange.selection = "abc";
    exchange.pasteError = "Could not send paste shortcut.";
    run("style:short", true, false);
    EXPECT_EQ(status.status(), ActionStatus::failed("Could not send paste shortcut."));
    EXPECT_EQ(latestOutput, "KEEP");
}

TEST_F(ActionRunnerTest, ARunnerGoneMidRunEndsItWithoutAStatus)
{
    exchange.readDuration = 100ms;
    run("style:short", true, false);
    const qsizetype published = statuses.size();
    runner.reset();
    clock.advance(1s);
    EXPECT_EQ(statuses.size(), published);
    EXPECT_TRUE(backend.calls.isEmpty());
}

TEST_F(ActionRunnerTest, LayoutSampleRunShowsTheFixedText)
{
    sampleText = "ghbdtn";
    run("layout", false, true);
    EXPECT_EQ(status.status(), ActionStatus::done("привет"));
    EXPECT_EQ(statuses, (QStringList{"Layout running", "Раскладка running", "привет"}));
    EXPECT_EQ(sampleText, "привет");
    EXPECT_EQ(latestOutput, "привет");
    EXPECT_TRUE(backend.calls.isEmpty());
    EXPECT_EQ(sources.selectCalls(), 0);
}

TEST_F(ActionRunnerTest, LayoutHotkeyRunIsQuietPrefersAccessibilityAndSwitchesTheLayout)
{
    const int russian = sources.addSource(FakeInputSourceProvider::layout(
        QStringLiteral("Русская — ПК"), QStringLiteral("com.apple.keylayout.RussianWin"), {}));
    exchange.accessibleSelection = "ghbdtn";
    run("layout", true, false);
    EXPECT_EQ(exchange.replacements, (QStringList{"привет"}));
    EXPECT_TRUE(exchange.pastes.isEmpty());
    EXPECT_TRUE(exchange.reads.isEmpty());
    EXPECT_EQ(sources.current(), russian);

    // Replacement refused: falls back to a quick paste; no accessible text: quick copy without select-all.
    exchange.replaceSucceeds = false;
    run("layout", true, false);
    ASSERT_EQ(exchange.pastes.size(), 1);
    EXPECT_EQ(exchange.pastes[0].timing, PasteboardTiming::quickTiming());

    exchange.accessibleSelection = "  \n";
    exchange.selection = "руддщ";
    run("layout", true, false);
    ASSERT_EQ(exchange.reads.size(), 1);
    EXPECT_FALSE(exchange.reads[0].selectAllBeforeCopy);
    EXPECT_FALSE(exchange.reads[0].includeFocusedTextFallback);
    EXPECT_EQ(exchange.reads[0].timing, PasteboardTiming::quickTiming());
    EXPECT_EQ(exchange.pastes.last().text, "hello");
    EXPECT_EQ(latestOutput, "hello");
    EXPECT_EQ(statuses, QStringList(3, QString()));
    EXPECT_EQ(status.status(), ActionStatus::idle());
}

} // namespace
