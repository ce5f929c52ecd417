#include "core/QuickAction.h"

#include "core/SettingsEnums.h"
#include "platform/SystemSurfaceSignals.h"

#include <gtest/gtest.h>

TEST(QuickActionTest, NormalizeAcceptsOldSpellingsAndKeepsUnknownIds)
{
    EXPECT_EQ(QuickAction::normalize("  fix "), "style:original");
    EXPECT_EQ(QuickAction::normalize("original\n"), "style:original");
    EXPECT_EQ(QuickAction::normalize("polite"), "style:polite");
    EXPECT_EQ(QuickAction::normalize("translate"), "translate");
    EXPECT_EQ(QuickAction::normalize("custom-ab12cd34"), "custom-ab12cd34");
    EXPECT_EQ(QuickAction::normalize("style:custom-ab12cd34"), "style:custom-ab12cd34");
    EXPECT_EQ(QuickAction::normalize(" style:fix "), "style:fix");
    // Case matters: only exact built-in ids are promoted.
    EXPECT_EQ(QuickAction::normalize("Polite"), "Polite");
}

TEST(QuickActionTest, StyleIdTitleAndSymbol)
{
    EXPECT_EQ(QuickAction("translate").styleId(), "translate");
    EXPECT_EQ(QuickAction("style:friendly").styleId(), "friendly");
    EXPECT_FALSE(QuickAction("clipboard").styleId().has_value());

    // The fixed titles: "original" has its own, other built-ins their catalogue name, the rest none.
    EXPECT_EQ(QuickAction("style:original").title(), "Исправить");
    EXPECT_EQ(QuickAction("style:friendly").title(), "Дружелюбно");
    EXPECT_EQ(QuickAction("style:unknown").title(), "Действие");
    EXPECT_EQ(QuickAction("whatever").title(), "Действие");

    // Icons go by style id first, so a style shares its icon with an action of the same name, and
    // anything unknown falls back to the generic one.
    EXPECT_EQ(QuickAction("style:casual").symbolName(), QuickAction("ai").symbolName());
    EXPECT_EQ(QuickAction("style:translate").symbolName(), "translate");
    EXPECT_EQ(QuickAction("style:custom-1").symbolName(), "sparkles");
}

TEST(SurfaceModeTest, SystemResolvedFollowsTheFirstSignalThatSpeaks)
{
    struct Signals : SystemSurfaceSignals {
        bool reduce = false;
        std::optional<int> process;
        std::optional<int> global;
        bool reduceTransparency() const override { return reduce; }
        std::optional<int> processGlassDiffusion() const override { return process; }
        std::optional<int> globalGlassDiffusion() const override { return global; }
    } s;
    EXPECT_EQ(systemResolvedSurfaceMode(nullptr), SurfaceMode::translucent);
    EXPECT_EQ(systemResolvedSurfaceMode(&s), SurfaceMode::translucent);
    s.global = 1;
    EXPECT_EQ(systemResolvedSurfaceMode(&s), SurfaceMode::solid);
    s.process = 0; // the process's own setting wins over the global one
    EXPECT_EQ(systemResolvedSurfaceMode(&s), SurfaceMode::translucent);
    s.reduce = true;
    EXPECT_EQ(systemResolvedSurfaceMode(&s), SurfaceMode::solid);
}
