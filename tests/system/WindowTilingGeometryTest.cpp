#include "system/WindowTilingGeometry.h"

#include <gtest/gtest.h>

namespace G = WindowTilingGeometry;
using S = WindowTileSlot;
using D = WindowSwapDirection;

TEST(WindowTilingGeometryTest, CellsOfOddSizesGiveTheRoundedDownHalvesToTheLeftAndTop)
{
    // The second area stands on a screen to the left of the primary one.
    for (const QRect area : {QRect(0, 0, 1441, 901), QRect(-1441, 30, 1441, 901)}) {
        SCOPED_TRACE(area.x());
        const int x = area.x();
        const int y = area.y();
        const std::pair<S, QRect> expected[] = {
            {S::full, area},
            {S::leftHalf, {x, y, 720, 901}},
            {S::rightHalf, {x + 720, y, 721, 901}},
            {S::topLeft, {x, y, 720, 450}},
            {S::topRight, {x + 720, y, 721, 450}},
            {S::bottomLeft, {x, y + 450, 720, 451}},
            {S::bottomRight, {x + 720, y + 450, 721, 451}},
        };
        for (const auto& [slot, cell] : expected) {
            EXPECT_EQ(G::cell(slot, area), cell) << int(slot);
        }
    }
}

TEST(WindowTilingGeometryTest, SlotsAndNeighboursFollowTheFramesCentre)
{
    const QRect area(-1000, 0, 1000, 800);
    struct Row {
        QRect frame;
        S slot;
        std::optional<S> left, right, up, down;
    };
    const Row rows[] = {
        // Taller than three quarters: a half, with no neighbour above or below.
        {{-1000, 0, 500, 601}, S::leftHalf, {}, S::rightHalf, {}, {}},
        // Centred exactly on the middle lines: right and bottom.
        {{-600, 200, 200, 400}, S::bottomRight, S::bottomLeft, {}, S::topRight, {}},
        {{-500, 0, 500, 801}, S::rightHalf, S::leftHalf, {}, {}, {}},
        // Exactly three quarters high: a quarter.
        {{-1000, 0, 400, 600}, S::topLeft, {}, S::topRight, {}, S::bottomLeft},
        {{-400, 0, 400, 300}, S::topRight, S::topLeft, {}, {}, S::bottomRight},
        {{-1000, 500, 400, 300}, S::bottomLeft, {}, S::bottomRight, S::topLeft, {}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(int(row.slot));
        EXPECT_EQ(G::slotContaining(row.frame, area), row.slot);
        EXPECT_EQ(G::adjacentSlot(row.frame, D::left, area), row.left);
        EXPECT_EQ(G::adjacentSlot(row.frame, D::right, area), row.right);
        EXPECT_EQ(G::adjacentSlot(row.frame, D::up, area), row.up);
        EXPECT_EQ(G::adjacentSlot(row.frame, D::down, area), row.down);
    }
}

TEST(WindowTilingGeometryTest, WindowsThatRefuseToShrinkStayInsideOnTheScreenEdgeSide)
{
    const QRect area(0, 0, 1441, 901);
    const QSize big(900, 600);
    const std::pair<S, QPoint> expected[] = {
        {S::full, {0, 0}},
        {S::leftHalf, {0, 0}},
        {S::rightHalf, {541, 0}},
        {S::topLeft, {0, 0}},
        {S::topRight, {541, 0}},
        {S::bottomLeft, {0, 301}},
        {S::bottomRight, {541, 301}},
    };
    for (const auto& [slot, anchor] : expected) {
        EXPECT_EQ(G::refusalAnchor(slot, G::cell(slot, area), big), anchor) << int(slot);
    }
    EXPECT_TRUE(G::fits({0, 0, 720, 450}, {721, 451}));
    EXPECT_FALSE(G::fits({0, 0, 720, 450}, {722, 450}));
    EXPECT_FALSE(G::fits({0, 0, 720, 450}, {720, 452}));
}

TEST(WindowTilingGeometryTest, LayoutsAndScreensByArea)
{
    EXPECT_EQ(G::tileAllSlots(0), QList<S>{});
    EXPECT_EQ(G::tileAllSlots(1), QList<S>{S::full});
    EXPECT_EQ(G::tileAllSlots(2), (QList<S>{S::leftHalf, S::rightHalf}));
    EXPECT_EQ(G::tileAllSlots(3), (QList<S>{S::leftHalf, S::topRight, S::bottomRight}));
    EXPECT_EQ(G::tileAllSlots(5), (QList<S>{S::topLeft, S::topRight, S::bottomLeft, S::bottomRight}));

    const QList<QRect> screens{{0, 0, 1000, 800}, {-1000, 0, 1000, 800}};
    EXPECT_EQ(G::screenIndexFor({-100, 0, 200, 100}, screens), 0) << "a tie goes to the earlier screen";
    EXPECT_EQ(G::screenIndexFor({-150, 0, 200, 100}, screens), 1);
    EXPECT_EQ(G::screenIndexFor({1000, 0, 200, 100}, screens), std::nullopt) << "touching is not sharing";
}
