#pragma once

// How the program shows on the desktop apart from its windows, where the platform keeps the two apart (an
// application icon and menu that outlive the main window).
class ApplicationPresence {
public:
    virtual ~ApplicationPresence() = default;

    // Regular: the application's icon and main menu are shown; otherwise it is an accessory reached only
    // through its menu-bar item and panels. GUI thread; non-blocking.
    virtual void setRegular(bool regular) = 0;
};
