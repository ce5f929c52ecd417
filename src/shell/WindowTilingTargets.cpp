#include "shell/WindowTilingTargets.h"

#include "system/BuiltInDisplayService.h"
#include "system/ChromeAppWindowService.h"
#include "system/WindowTilingService.h"

WindowTilingTargets::WindowTilingTargets(WindowTilingService& tiling, ChromeAppWindowService& browser,
                                         BuiltInDisplayService& display)
    : m_tiling(tiling), m_browser(browser), m_display(display)
{}

void WindowTilingTargets::toggleBuiltInDisplay()
{
    m_display.toggle();
}

void WindowTilingTargets::swapFocusedWindow(WindowSwapDirection direction)
{
    enqueue([this, direction] { return m_tiling.swapFocusedWindow(direction); });
}

void WindowTilingTargets::tileAllWindows()
{
    enqueue([this] { return m_tiling.tileAllWindows(); });
}

void WindowTilingTargets::tileFocusedWindow(WindowTileSlot slot)
{
    enqueue([this, slot] { return m_tiling.tileFocusedWindow(slot); });
}

bool WindowTilingTargets::popOutActiveTabIfNeeded(WindowTileSlot slot)
{
    return m_browser.popOutActiveTabIfNeeded(slot);
}

void WindowTilingTargets::enqueue(Operation operation)
{
    m_pending.push_back(std::move(operation));
    if (!m_running) {
        drain();
    }
}

QCoro::Task<> WindowTilingTargets::drain()
{
    m_running = true;
    while (!m_pending.empty()) {
        const Operation operation = std::move(m_pending.front());
        m_pending.pop_front();
        co_await operation();
    }
    m_running = false;
}
