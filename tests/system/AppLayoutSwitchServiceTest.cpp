#include "system/AppLayoutSwitchService.h"

#include "AppStateHarness.h"
#include "CapturedLog.h"
#include "FakeApplicationWorkspace.h"

#include <QStringList>
#include <gtest/gtest.h>

namespace {
using namespace std::chrono_literals;

constexpr qint32 editor = 10;
constexpr qint32 browser = 20;
constexpr qint32 nameless = 30;

AppLayoutRule rule(const QString& bundle, const QString& layout, bool enabled = true)
{
    return AppLayoutRule{QUuid::createUuid(), bundle, bundle, QString(), layout, enabled};
}

class AppLayoutSwitchServiceTest : public AppStateHarness, public ::testing::Test {
protected:
    void SetUp() override
    {
        english = sources.addSource(FakeInputSourceProvider::layout("ABC", "us", u"q"));
        russian = sources.addSource(FakeInputSourceProvider::layout("Russian", "ru", u"й"));
        german = sources.addSource(FakeInputSourceProvider::layout("German", "de", u"q"));
        sources.setCurrent(english);
        workspace.addApplication(editor, QStringLiteral("Editor"));
        workspace.addApplication(browser, QStringLiteral("Browser"));
        workspace.addApplication(nameless, QString());
    }

    void useRules(const QList<AppLayoutRule>& rules, bool enabled = true)
    {
        configure([&](MivoraSettings& s) {
            s.appLayoutRules = rules;
            s.appLayoutSwitchingEnabled = enabled;
        });
    }

    int english = 0;
    int russian = 0;
    int german = 0;
    FakeApplicationWorkspace workspace;
    AppLayoutSwitchService service{{workspace, sources, layout, clock}};
    CapturedLog captured;
    QStringList& log = captured.lines;
};

TEST_F(AppLayoutSwitchServiceTest, TheFirstEnabledRuleOfTheApplicationInFrontDecides)
{
    struct Case {
        const char* name;
        QList<AppLayoutRule> rules;
        bool enabled;
        int expected;
        qint32 front = editor;
    };
    const std::vector<Case> cases = {
        {"first enabled wins",
         {rule("Editor", "German", false), rule("Editor", "Russian"), rule("Editor", "German")},
         true,
         russian},
        {"another application's rule", {rule("Browser", "Russian")}, true, english},
        {"switching off", {rule("Editor", "Russian")}, false, english},
        {"case matters", {rule("editor", "Russian")}, true, english},
        {"no identifier matches no rule", {rule("", "Russian")}, true, english, nameless},
    };
    service.start(state);
    for (const Case& c : cases) {
        sources.setCurrent(english);
        useRules(c.rules, c.enabled);
        workspace.bringToFront(c.front);
        clock.advance(2s);
        EXPECT_EQ(sources.current(), c.expected) << c.name;
    }
}

TEST_F(AppLayoutSwitchServiceTest, StartAppliesTheRuleOfTheApplicationAlreadyInFront)
{
    useRules({rule("Editor", "Russian")});
    workspace.bringToFront(editor);
    service.start(state);
    EXPECT_EQ(sources.current(), russian);
}

// An application that restores its own input source after activation is overruled for 1.5 s, by hand or
// not; after that its choice stands.
TEST_F(AppLayoutSwitchServiceTest, ChangesWithinTheGuardAreUndoneAndLaterOnesStand)
{
    useRules({rule("Editor", "Russian")});
    service.start(state);
    for (const auto& [at, expected] : std::vector<std::pair<std::chrono::milliseconds, int>>{
             {100ms, russian}, {1000ms, russian}, {1400ms, russian}, {1500ms, english}, {1600ms, english}}) {
        workspace.bringToFront(browser);
        workspace.bringToFront(editor);
        ASSERT_EQ(sources.current(), russian);
        clock.advance(at);
        sources.setCurrent(english);
        EXPECT_EQ(sources.current(), expected) << at.count() << " ms";
        clock.advance(2s);
    }
}

// A second activation of the application starts the guard again, and a move to another of its windows is
// no activation: the choice made there stands.
TEST_F(AppLayoutSwitchServiceTest, ReactivationRestartsTheGuardAndAnotherWindowLeavesTheLayout)
{
    useRules({rule("Editor", "Russian")});
    service.start(state);
    for (const auto& [at, expected] :
         std::vector<std::pair<std::chrono::milliseconds, int>>{{2400ms, russian}, {2500ms, english}}) {
        workspace.bringToFront(browser);
        workspace.bringToFront(editor);
        clock.advance(1s);
        workspace.bringToFront(editor);
        clock.advance(at - 1s);
        sources.setCurrent(english);
        EXPECT_EQ(sources.current(), expected) << at.count() << " ms";
        clock.advance(2s);
    }

    sources.setCurrent(german);
    workspace.bringOtherWindowForward();
    clock.advance(2s);
    EXPECT_EQ(sources.current(), german);
}

// The rule is repeated at 0.15, 0.4 and 0.8 s while the application stays in front; a later activation
// cancels the repeats of the earlier one. A missing layout is logged at each try and reaches nobody else.
TEST_F(AppLayoutSwitchServiceTest, RepeatsFollowTheLastActivationAndLogEachFailure)
{
    useRules({rule("Editor", "Klingon")});
    service.start(state);
    const QString failure =
        QStringLiteral("MivoraAI app layout rule failed for Editor: Keyboard layout not found: Klingon");
    const auto activatedAt = clock.elapsed();
    workspace.bringToFront(editor);
    EXPECT_EQ(log.size(), 1);
    // A change by hand would be undone at once by the guard, so each repeat is pinned by its log line.
    for (const auto& [at, tries] : std::vector<std::pair<std::chrono::milliseconds, int>>{
             {149ms, 1}, {150ms, 2}, {399ms, 2}, {400ms, 3}, {799ms, 3}, {800ms, 4}, {3s, 4}}) {
        clock.advance(activatedAt + at - clock.elapsed());
        EXPECT_EQ(log.size(), tries) << at.count() << " ms";
    }
    EXPECT_EQ(log.first(), failure);
    EXPECT_EQ(state.status().kind, ActionStatus::Kind::idle);

    log.clear();
    workspace.bringToFront(editor);
    clock.advance(100ms);
    workspace.bringToFront(browser);
    clock.advance(100ms);
    workspace.bringToFront(editor);
    clock.advance(2s);
    EXPECT_EQ(log.size(), 5) << "one try at each activation, then the three repeats of the last";
}
} // namespace
