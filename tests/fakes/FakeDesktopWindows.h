#pragma once

#include "platform/DesktopWindows.h"

#include <QMap>

// A desktop in memory: windows with frames, front to back in list order. Moves take effect at once, except
// that a window never gets narrower than its minimum width; settledFrame answers at once.
class FakeDesktopWindows : public DesktopWindows {
public:
    struct Window {
        StackedWindow entry;
        WindowState state{true, false, false};
        int minimumWidth = 0;
        // Whether the process lists it among its windows.
        bool listed = true;
    };

    // Adds a window behind those added before; a standard window of process 100 unless changed.
    Window& add(WindowId id, const QRect& frame, qint32 process = 100)
    {
        Window window;
        window.entry = {id, process, 0, std::nullopt, frame};
        order.append(id);
        return windows[id] = window;
    }

    QList<Screen> screenList;
    QMap<WindowId, Window> windows;
    QList<WindowId> order;
    WindowId focused = 0;
    QMap<qint32, int> processQueries;

    WindowId focusedWindow() override { return focused; }
    std::optional<WindowState> state(WindowId id) override
    {
        return windows.contains(id) ? std::optional(windows[id].state) : std::nullopt;
    }
    std::optional<QRect> frame(WindowId id) override
    {
        return windows.contains(id) ? std::optional(windows[id].entry.bounds) : std::nullopt;
    }
    QList<Screen> screens() override { return screenList; }
    QList<StackedWindow> windowsFrontToBack() override
    {
        QList<StackedWindow> result;
        for (const WindowId id : order) {
            result.append(windows[id].entry);
        }
        return result;
    }
    QList<WindowId> windowsOfProcess(qint32 process) override
    {
        ++processQueries[process];
        QList<WindowId> result;
        for (const Window& window : windows) {
            if (window.listed && window.entry.ownerProcess == process) {
                result.append(window.entry.window);
            }
        }
        return result;
    }
    void setPosition(WindowId id, QPoint topLeft) override { windows[id].entry.bounds.moveTopLeft(topLeft); }
    void setSize(WindowId id, QSize size) override
    {
        windows[id].entry.bounds.setSize({std::max(size.width(), windows[id].minimumWidth), size.height()});
    }
    QCoro::Task<std::optional<QRect>> settledFrame(WindowId id, QRect) override { co_return frame(id); }
};
