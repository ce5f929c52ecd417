#pragma once

#include <QProcessEnvironment>
#include <QString>

// What kind of graphical session the program was started in, from its environment: it works through X11,
// so a pure Wayland session cannot host it, and one with XWayland hosts it with limits.
struct DisplaySession {
    enum class Kind { x11, xwayland, waylandOnly, none };

    Kind kind = Kind::none;

    static DisplaySession fromEnvironment(const QProcessEnvironment& environment);

    // Why the program cannot start here; empty when it can.
    QString refusal() const;
    // What the user should know once, in the interface language; empty when nothing.
    QString warning(bool russian) const;
};
