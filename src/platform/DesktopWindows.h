#pragma once

#include <QList>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <optional>
#include <qcoro/qcorotask.h>

// The top-level windows of other applications as the user sees them, and the screens they stand on. Every
// rectangle is in desktop pixels: origin at the top left of the primary screen, y down, and a window's frame
// is its outer frame, decorations included. GUI thread; reads block for a few round trips to the display
// server; failures give nullopt or empty, never an exception.
class DesktopWindows {
public:
    // One window; 0 is none.
    using WindowId = quint64;

    struct Screen {
        QRect frame;
        // The frame less what docks and panels reserve.
        QRect visibleFrame;
        bool operator==(const Screen&) const = default;
    };

    struct WindowState {
        // An ordinary application window (not a dialog, dock, menu or splash).
        bool isStandard = false;
        bool isMinimized = false;
        bool isFullScreen = false;
    };

    // One entry of the on-screen window list.
    struct StackedWindow {
        WindowId window = 0;
        // The owning process; nullopt when the window does not say.
        std::optional<qint32> ownerProcess;
        // 0 for ordinary windows; above for docks, panels and windows kept above, below for the desktop
        // and windows kept below.
        int layer = 0;
        // The window's opacity from 0 to 1, when it sets one.
        std::optional<double> alpha;
        QRect bounds;
    };

    virtual ~DesktopWindows() = default;

    // The window that has the keyboard focus, or 0.
    virtual WindowId focusedWindow() = 0;
    // What kind of window it is; nullopt when it is gone.
    virtual std::optional<WindowState> state(WindowId window) = 0;
    // Its outer frame; nullopt when it cannot be read.
    virtual std::optional<QRect> frame(WindowId window) = 0;
    // The screens, the primary one first.
    virtual QList<Screen> screens() = 0;
    // The windows shown on the current desktop, front to back.
    virtual QList<StackedWindow> windowsFrontToBack() = 0;
    // The windows of one process. The costly call: ask it once per process and operation.
    virtual QList<WindowId> windowsOfProcess(qint32 processIdentifier) = 0;
    // Asks the window manager to move the window's outer frame there; a refusal is silent. Non-blocking.
    virtual void setPosition(WindowId window, QPoint topLeft) = 0;
    // Asks the window manager to give the window's outer frame that size; a refusal is silent.
    // Non-blocking.
    virtual void setSize(WindowId window, QSize size) = 0;
    // Waits, bounded, until the window manager has answered the moves asked so far: until the frame is
    // expected or no more changes come; then the frame (nullopt when the window is gone). Suspends; never
    // blocks the GUI thread for long.
    virtual QCoro::Task<std::optional<QRect>> settledFrame(WindowId window, QRect expected) = 0;
};
