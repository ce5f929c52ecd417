#pragma once

#include <QtGlobal>
#include <functional>

// How the program is present on the desktop: regular with its main window and a taskbar entry, or an
// accessory reached only through the tray and its panels.
enum class ActivationPolicy { regular, accessory };

// What the main window asks of the rest of the program.
struct MainWindowHooks {
    // Asked when the user closes the window: true lets it close.
    std::function<bool()> shouldClose;
    // Called after the window has really closed.
    std::function<void()> closed;
    // Control+Shift+Space inside the window.
    std::function<void()> toggleQuickMenu;
    // Called with the native window before each show, for the platform's own frame of a main window.
    std::function<void(quintptr)> beforeShow;
};

// The main window as the lifecycle logic sees it; the main window's view implements it. GUI thread.
class MainWindowHost {
public:
    virtual ~MainWindowHost() = default;

    // Whether the main window is shown and not minimised. Non-blocking.
    virtual bool hasVisibleMainWindow() const = 0;
    // Applies the presence: an accessory keeps no taskbar entry. Non-blocking.
    virtual void setActivationPolicy(ActivationPolicy policy) = 0;
    // Hides the main window; its state survives. Non-blocking.
    virtual void orderOut() = 0;
    // Shows the main window in front with the focus, making it on first use. Non-blocking.
    virtual void showAndActivate() = 0;
};
