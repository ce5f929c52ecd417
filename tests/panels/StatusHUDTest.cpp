#include "AppStateHarness.h"
#include "panels/StatusHUDController.h"
#include "panels/StatusHUDSurface.h"

#include <gtest/gtest.h>

namespace {

struct SurfaceLog {
    int made = 0;
    QList<StatusHUDContent> shown;
    bool visible = false;
};

class RecordingSurface : public StatusHUDSurface {
public:
    explicit RecordingSurface(SurfaceLog& log) : m_log(log) {}
    void present(const StatusHUDContent& content, AppearanceMode, SurfaceMode) override
    {
        m_log.shown.append(content);
        m_log.visible = true;
    }
    void orderOut() override { m_log.visible = false; }
    bool isShown() const override { return m_log.visible; }

private:
    SurfaceLog& m_log;
};

class StatusHUDTest : public AppStateHarness, public ::testing::Test {
protected:
    SurfaceLog log;
    StatusHUDController hud{[this] {
        ++log.made;
        return std::make_unique<RecordingSurface>(log);
    }};
};

} // namespace

TEST(StatusHUDContentTest, EachStatusHasItsSymbolToneAndText)
{
    using Tone = StatusHUDContent::Tone;
    EXPECT_EQ(
        StatusHUDContent::of(ActionStatus::running(QStringLiteral("Pasting"))),
        (StatusHUDContent{QStringLiteral("progress.indicator"), Tone::blue, QStringLiteral("Pasting")}));
    EXPECT_EQ(
        StatusHUDContent::of(ActionStatus::done(QStringLiteral("Pasted"))),
        (StatusHUDContent{QStringLiteral("checkmark.circle.fill"), Tone::green, QStringLiteral("Pasted")}));
    EXPECT_EQ(StatusHUDContent::of(ActionStatus::failed(QStringLiteral("No selected text."))),
              (StatusHUDContent{QStringLiteral("exclamationmark.triangle.fill"), Tone::orange,
                                QStringLiteral("No selected text.")}));
    EXPECT_EQ(
        StatusHUDContent::of(ActionStatus::idle()),
        (StatusHUDContent{QStringLiteral("checkmark.circle"), Tone::secondary, QStringLiteral("Ready")}));
}

TEST_F(StatusHUDTest, FollowsTheStatusUntilItsResetAndReusesOneSurface)
{
    EXPECT_EQ(log.made, 0) << "no overlay before the first status";
    state.publishStatus(ActionStatus::idle());
    EXPECT_EQ(log.made, 0);

    hud.attach(state);
    state.publishStatus(ActionStatus::running(QStringLiteral("Reading selection")));
    state.publishStatus(ActionStatus::failed(QStringLiteral("Backend URL is invalid.")));
    ASSERT_EQ(log.shown.size(), 2);
    EXPECT_EQ(log.shown.last().text, QStringLiteral("Backend URL is invalid."));
    EXPECT_TRUE(hud.isShown());

    // No timer of its own: the overlay goes exactly when the state's reset publishes idle.
    clock.advance(std::chrono::milliseconds(1299));
    EXPECT_TRUE(hud.isShown());
    clock.advance(std::chrono::milliseconds(1));
    EXPECT_FALSE(hud.isShown());

    state.publishStatus(ActionStatus::done(QStringLiteral("Pasted")));
    EXPECT_TRUE(hud.isShown());
    EXPECT_EQ(log.made, 1);
}
