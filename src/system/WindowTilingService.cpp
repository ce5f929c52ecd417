#include "system/WindowTilingService.h"

#include "system/WindowTilingGeometry.h"

#include <QHash>

namespace Geometry = WindowTilingGeometry;

namespace {
// Windows smaller than this are tool strips and badges, never tiled.
constexpr int minimumWidth = 80;
constexpr int minimumHeight = 60;
} // namespace

WindowTilingService::WindowTilingService(DesktopWindows& windows, qint32 ownProcess)
    : m_windows(windows), m_ownProcess(ownProcess)
{}

WindowTilingService::WindowId WindowTilingService::focusedWindow()
{
    return m_windows.focusedWindow();
}

bool WindowTilingService::isTileable(WindowId window)
{
    const std::optional<DesktopWindows::WindowState> state = m_windows.state(window);
    return state && state->isStandard && !state->isMinimized && !state->isFullScreen;
}

QRect WindowTilingService::axFrame(WindowId window)
{
    return m_windows.frame(window).value_or(QRect());
}

std::optional<WindowTilingService::Screen> WindowTilingService::screenForAXFrame(const QRect& frame)
{
    return screenForAXFrame(frame, m_windows.screens());
}

std::optional<WindowTilingService::Screen> WindowTilingService::screenForAXFrame(const QRect& frame,
                                                                                 const QList<Screen>& screens)
{
    QList<QRect> frames;
    for (const Screen& screen : screens) {
        frames.append(screen.frame);
    }
    const std::optional<qsizetype> index = Geometry::screenIndexFor(frame, frames);
    return index ? std::optional(screens[*index]) : std::nullopt;
}

QList<WindowTilingService::WindowId> WindowTilingService::windowsInStackingOrder(const Screen& screen)
{
    QList<WindowId> result;
    const QList<Screen> screens = m_windows.screens();
    QHash<qint32, QList<WindowId>> windowsByProcess;
    for (const DesktopWindows::StackedWindow& entry : m_windows.windowsFrontToBack()) {
        if (entry.layer != 0 || !entry.ownerProcess || *entry.ownerProcess == m_ownProcess ||
            entry.window == 0 || (entry.alpha && *entry.alpha <= 0) || entry.bounds.width() < minimumWidth ||
            entry.bounds.height() < minimumHeight || screenForAXFrame(entry.bounds, screens) != screen) {
            continue;
        }
        auto known = windowsByProcess.find(*entry.ownerProcess);
        if (known == windowsByProcess.end()) {
            known =
                windowsByProcess.insert(*entry.ownerProcess, m_windows.windowsOfProcess(*entry.ownerProcess));
        }
        if (known->contains(entry.window) && isTileable(entry.window)) {
            result.append(entry.window);
        }
    }
    return result;
}

void WindowTilingService::setFrame(WindowId window, const QRect& frame)
{
    // An application may clamp its size to where it stands or move while it resizes: the second move
    // settles it.
    m_windows.setPosition(window, frame.topLeft());
    m_windows.setSize(window, frame.size());
    m_windows.setPosition(window, frame.topLeft());
}

QCoro::Task<> WindowTilingService::place(WindowId window, QRect cell, WindowTileSlot slot)
{
    setFrame(window, cell);
    const std::optional<QRect> actual = co_await m_windows.settledFrame(window, cell);
    if (!actual || Geometry::fits(cell, actual->size())) {
        co_return;
    }
    // It refused to shrink: keep it inside the cell on the side that faces the screen edge.
    m_windows.setPosition(window, Geometry::refusalAnchor(slot, cell, actual->size()));
}

QCoro::Task<> WindowTilingService::tileFocusedWindow(WindowTileSlot slot)
{
    const WindowId window = focusedWindow();
    if (window == 0 || !isTileable(window)) {
        co_return;
    }
    std::optional<Screen> screen = screenForAXFrame(axFrame(window));
    if (!screen) {
        const QList<Screen> screens = m_windows.screens();
        if (screens.isEmpty()) {
            co_return;
        }
        screen = screens.first();
    }
    co_await place(window, Geometry::cell(slot, screen->visibleFrame), slot);
}

QCoro::Task<> WindowTilingService::swapFocusedWindow(WindowSwapDirection direction)
{
    const WindowId window = focusedWindow();
    if (window == 0 || !isTileable(window)) {
        co_return;
    }
    const QRect frame = axFrame(window);
    const std::optional<Screen> screen = screenForAXFrame(frame);
    if (!screen) {
        co_return;
    }
    const QRect area = screen->visibleFrame;
    const WindowTileSlot current = Geometry::slotContaining(frame, area);
    const std::optional<WindowTileSlot> target = Geometry::adjacentSlot(frame, direction, area);
    if (!target) {
        co_return;
    }
    const QRect targetCell = Geometry::cell(*target, area);
    WindowId partner = 0;
    for (const WindowId candidate : windowsInStackingOrder(*screen)) {
        if (candidate != window && Geometry::centreLiesIn(axFrame(candidate), targetCell)) {
            partner = candidate;
            break;
        }
    }
    if (partner != 0) {
        co_await place(partner, Geometry::cell(current, area), current);
    }
    co_await place(window, targetCell, *target);
}

QCoro::Task<> WindowTilingService::tileAllWindows()
{
    const WindowId focused = focusedWindow();
    std::optional<Screen> screen = focused == 0 ? std::nullopt : screenForAXFrame(axFrame(focused));
    if (!screen) {
        const QList<Screen> screens = m_windows.screens();
        if (screens.isEmpty()) {
            co_return;
        }
        screen = screens.first();
    }
    const QList<WindowId> windows = windowsInStackingOrder(*screen).mid(0, 4);
    const QList<WindowTileSlot> layout = Geometry::tileAllSlots(int(windows.size()));
    for (qsizetype index = 0; index < windows.size(); ++index) {
        co_await place(windows[index], Geometry::cell(layout[index], screen->visibleFrame), layout[index]);
    }
}

std::optional<WindowTilingService::WindowAtPoint> WindowTilingService::windowAt(QPoint point)
{
    const std::optional<Screen> screen = screenForAXFrame(QRect(point, QSize(1, 1)));
    if (!screen) {
        return std::nullopt;
    }
    for (const WindowId window : windowsInStackingOrder(*screen)) {
        const QRect frame = axFrame(window);
        if (frame.contains(point)) {
            return WindowAtPoint{window, frame};
        }
    }
    return std::nullopt;
}

void WindowTilingService::swapDraggedWindow(WindowId window, const QRect& originalFrame, QPoint dropPoint)
{
    if (!isTileable(window)) {
        return;
    }
    const std::optional<Screen> screen = screenForAXFrame(QRect(dropPoint, QSize(1, 1)));
    if (!screen) {
        return;
    }
    for (const WindowId partner : windowsInStackingOrder(*screen)) {
        if (partner != window && axFrame(partner).contains(dropPoint)) {
            setFrame(window, axFrame(partner));
            setFrame(partner, originalFrame);
            return;
        }
    }
}
