#include "system/WindowDragSwapMonitor.h"

#include "FakeDesktopWindows.h"
#include "FakeInputEventMonitor.h"
#include "MemoryDefaultsStore.h"

#include <gtest/gtest.h>

namespace {

using Kind = MonitoredInputEvent::Kind;

TEST(WindowDragSwapMonitorTest, SwapsOnlyAWindowReallyDraggedWithAltHeldOntoAnother)
{
    struct Row {
        const char* what;
        QPoint moved;
        bool altAtRelease;
        QVariant stored;
        bool swaps;
    };
    const Row rows[] = {
        {"ten pixels on both axes is a click", {10, 10}, true, {}, false},
        {"eleven on one axis is a drag", {11, 0}, true, {}, true},
        {"Alt let go first cancels", {300, 0}, false, {}, false},
        {"switched off", {300, 0}, true, false, false},
        {"switched off, as a text store keeps it", {300, 0}, true, QStringLiteral("false"), false},
        {"any other value leaves it on", {300, 0}, true, QStringLiteral("yes"), true},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        FakeDesktopWindows desktop;
        desktop.screenList = {{{0, 0, 1600, 1000}, {0, 0, 1600, 1000}}};
        desktop.add(1, {0, 0, 800, 1000});
        desktop.add(2, {800, 0, 800, 1000});
        WindowTilingService tiling(desktop, 7);
        FakeInputEventMonitor input;
        MemoryDefaultsStore defaults;
        if (row.stored.isValid()) {
            defaults.setValue(QStringLiteral("mivora.windowTiling.enabled"), row.stored);
        }
        WindowDragSwapMonitor monitor(input, defaults, tiling);
        monitor.start();
        monitor.start();

        MonitoredInputEvent press = FakeInputEventMonitor::event(Kind::leftMouseDown);
        press.optionHeld = true;
        press.pointer = {795, 10};
        input.deliver(press);
        // The window manager's own Alt+drag moves the window with the pointer.
        desktop.windows[1].entry.bounds.translate(row.moved);
        MonitoredInputEvent release = FakeInputEventMonitor::event(Kind::leftMouseUp);
        release.optionHeld = row.altAtRelease;
        release.pointer = press.pointer + row.moved;
        input.deliver(release);

        const QRect dropped = QRect(0, 0, 800, 1000).translated(row.moved);
        EXPECT_EQ(desktop.windows[1].entry.bounds, row.swaps ? QRect(800, 0, 800, 1000) : dropped);
        EXPECT_EQ(desktop.windows[2].entry.bounds,
                  row.swaps ? QRect(0, 0, 800, 1000) : QRect(800, 0, 800, 1000));
    }
}

} // namespace
