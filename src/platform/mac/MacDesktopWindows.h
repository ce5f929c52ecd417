#pragma once

#include "platform/DesktopWindows.h"

#include <memory>

// Other applications' windows: the on-screen list of the window server, and each window's accessibility
// element (matched to its window number) for reading and moving it. Screens are NSScreen's, turned so that
// y grows downwards from the top of the primary screen. GUI thread only.
class MacDesktopWindows : public DesktopWindows {
public:
    MacDesktopWindows();
    ~MacDesktopWindows() override;
    MacDesktopWindows(const MacDesktopWindows&) = delete;
    MacDesktopWindows& operator=(const MacDesktopWindows&) = delete;

    WindowId focusedWindow() override;
    std::optional<WindowState> state(WindowId window) override;
    std::optional<QRect> frame(WindowId window) override;
    QList<Screen> screens() override;
    QList<StackedWindow> windowsFrontToBack() override;
    QList<WindowId> windowsOfProcess(qint32 processIdentifier) override;
    void setPosition(WindowId window, QPoint topLeft) override;
    void setSize(WindowId window, QSize size) override;
    // Accessibility writes return once the application has answered, so the frame is settled already.
    QCoro::Task<std::optional<QRect>> settledFrame(WindowId window, QRect expected) override;

private:
    // The elements of the windows seen so far, by window number.
    struct Elements;
    std::unique_ptr<Elements> m_elements;
};
