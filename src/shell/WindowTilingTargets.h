#pragma once

#include "hotkeys/HotkeyWindowTargets.h"

#include <deque>
#include <functional>
#include <qcoro/qcorotask.h>

class BuiltInDisplayService;
class ChromeAppWindowService;
class WindowTilingService;

// The desktop hotkeys' targets: each tiling press becomes one tiling operation, run after those pressed
// before it have settled, so quick presses never move one window two ways at once; the display chord goes
// to the display service at once. GUI thread.
class WindowTilingTargets : public HotkeyWindowTargets {
public:
    WindowTilingTargets(WindowTilingService& tiling, ChromeAppWindowService& browser,
                        BuiltInDisplayService& display);

    void toggleBuiltInDisplay() override;
    void swapFocusedWindow(WindowSwapDirection direction) override;
    void tileAllWindows() override;
    void tileFocusedWindow(WindowTileSlot slot) override;
    bool popOutActiveTabIfNeeded(WindowTileSlot slot) override;

private:
    using Operation = std::function<QCoro::Task<>()>;
    void enqueue(Operation operation);
    QCoro::Task<> drain();

    WindowTilingService& m_tiling;
    ChromeAppWindowService& m_browser;
    BuiltInDisplayService& m_display;
    std::deque<Operation> m_pending;
    bool m_running = false;
};
