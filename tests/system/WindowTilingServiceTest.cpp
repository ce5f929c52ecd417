#include "system/WindowTilingService.h"

#include "AwaitTask.h"
#include "FakeDesktopWindows.h"

#include <gtest/gtest.h>

namespace {

constexpr qint32 ownProcess = 7;
using S = WindowTileSlot;

class WindowTilingServiceTest : public ::testing::Test {
protected:
    WindowTilingServiceTest()
    {
        // The primary screen with a panel along its top, and a second one to its left.
        desktop.screenList = {{{0, 0, 1441, 901}, {0, 30, 1441, 871}},
                              {{-1000, 0, 1000, 800}, {-1000, 0, 1000, 800}}};
    }

    QRect frameOf(DesktopWindows::WindowId id) { return desktop.windows[id].entry.bounds; }

    FakeDesktopWindows desktop;
    WindowTilingService tiling{desktop, ownProcess};
};

TEST_F(WindowTilingServiceTest, TileAllTakesTheFourFrontMostWindowsThatQualify)
{
    const QRect somewhere(100, 100, 300, 200);
    desktop.add(1, somewhere).entry.ownerProcess = ownProcess;
    desktop.add(2, somewhere).entry.layer = 3;
    desktop.add(3, somewhere).entry.alpha = 0.0;
    desktop.add(4, {100, 100, 79, 200});
    desktop.add(5, {100, 100, 300, 59});
    desktop.add(6, {-900, 100, 300, 200});
    desktop.add(7, somewhere).listed = false;
    desktop.add(8, somewhere).state.isStandard = false;
    desktop.add(9, somewhere).state.isMinimized = true;
    desktop.add(10, somewhere).entry.ownerProcess = std::nullopt;
    for (DesktopWindows::WindowId id = 11; id <= 15; ++id) {
        desktop.add(id, somewhere, qint32(200 + id % 2)).entry.alpha = 1.0;
    }
    desktop.focused = 8;

    AwaitTask::run(tiling.tileAllWindows());

    EXPECT_EQ(frameOf(11), QRect(0, 30, 720, 435));
    EXPECT_EQ(frameOf(12), QRect(720, 30, 721, 435));
    EXPECT_EQ(frameOf(13), QRect(0, 465, 720, 436));
    EXPECT_EQ(frameOf(14), QRect(720, 465, 721, 436));
    for (const DesktopWindows::WindowId untouched : {1, 2, 3, 6, 7, 8, 9, 15}) {
        EXPECT_EQ(frameOf(untouched).topLeft(), QPoint(untouched == 6 ? -900 : 100, 100)) << untouched;
    }
    for (const auto count : desktop.processQueries) {
        EXPECT_EQ(count, 1) << "each process is asked once per call";
    }
}

TEST_F(WindowTilingServiceTest, SwapsWithTheFrontMostWindowOfTheNeighbouringCell)
{
    struct Row {
        WindowSwapDirection direction;
        QRect focusedAfter;
        QRect frontPartnerAfter;
    };
    const QRect left(0, 30, 720, 871);
    const QRect right(720, 30, 721, 871);
    const Row rows[] = {
        {WindowSwapDirection::right, right, left},
        // A half has no neighbour above: nothing moves.
        {WindowSwapDirection::up, left, {800, 100, 400, 300}},
    };
    for (const Row& row : rows) {
        desktop.windows.clear();
        desktop.order.clear();
        desktop.add(1, left);
        desktop.add(2, {800, 100, 400, 300});
        desktop.add(3, {750, 50, 500, 500});
        desktop.focused = 1;

        AwaitTask::run(tiling.swapFocusedWindow(row.direction));

        EXPECT_EQ(frameOf(1), row.focusedAfter);
        EXPECT_EQ(frameOf(2), row.frontPartnerAfter);
        EXPECT_EQ(frameOf(3), QRect(750, 50, 500, 500)) << "only the front-most partner moves";
    }
}

TEST_F(WindowTilingServiceTest, OffScreenWindowsTileOnThePrimaryScreenButNeverSwap)
{
    desktop.add(1, {5000, 100, 300, 200});
    desktop.focused = 1;
    AwaitTask::run(tiling.swapFocusedWindow(WindowSwapDirection::left));
    EXPECT_EQ(frameOf(1), QRect(5000, 100, 300, 200));

    AwaitTask::run(tiling.tileFocusedWindow(S::leftHalf));
    EXPECT_EQ(frameOf(1), QRect(0, 30, 720, 871));
    // With the cell beside it empty, it moves alone.
    AwaitTask::run(tiling.swapFocusedWindow(WindowSwapDirection::right));
    EXPECT_EQ(frameOf(1), QRect(720, 30, 721, 871));
}

} // namespace
