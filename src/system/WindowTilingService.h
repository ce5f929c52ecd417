#pragma once

#include "core/WindowTilingHotkeys.h"
#include "platform/DesktopWindows.h"

#include <QList>
#include <QRect>
#include <optional>
#include <qcoro/qcorotask.h>

// Moves other applications' windows into halves and quarters of their screen, swaps a window with its
// neighbour and lays out up to four windows at once. Holds no state of its own: every operation reads the
// screens and windows afresh. A missing window or screen ends an operation silently, and a refused move is
// ignored. GUI thread.
class WindowTilingService {
public:
    using WindowId = DesktopWindows::WindowId;
    using Screen = DesktopWindows::Screen;

    struct WindowAtPoint {
        WindowId window = 0;
        QRect frame;
    };

    // This program's windows (those of ownProcess) never take part.
    WindowTilingService(DesktopWindows& windows, qint32 ownProcess);

    // Puts the focused window into the slot of its screen (the primary one when it stands on none).
    QCoro::Task<> tileFocusedWindow(WindowTileSlot slot);
    // Trades places between the focused window and the front-most window of the neighbouring cell; moves
    // it alone when that cell is empty.
    QCoro::Task<> swapFocusedWindow(WindowSwapDirection direction);
    // Lays out the four front-most windows of the focused window's screen.
    QCoro::Task<> tileAllWindows();
    // Exchanges the dragged window's frame with that of the window under the drop point; exact frames, no
    // slots.
    void swapDraggedWindow(WindowId window, const QRect& originalFrame, QPoint dropPoint);
    // The front-most window under the point, with its frame.
    std::optional<WindowAtPoint> windowAt(QPoint point);

    // The window's outer frame; an empty rectangle when it cannot be read.
    QRect axFrame(WindowId window);
    bool isTileable(WindowId window);

private:
    WindowId focusedWindow();
    std::optional<Screen> screenForAXFrame(const QRect& frame);
    static std::optional<Screen> screenForAXFrame(const QRect& frame, const QList<Screen>& screens);
    QList<WindowId> windowsInStackingOrder(const Screen& screen);
    void setFrame(WindowId window, const QRect& frame);
    QCoro::Task<> place(WindowId window, QRect cell, WindowTileSlot slot);

    DesktopWindows& m_windows;
    qint32 m_ownProcess;
};
