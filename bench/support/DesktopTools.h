#pragma once

#include "platform/x11/X11DisplayConnection.h"

#include <QString>

// The desktop set up and tidied through its command-line tools, as a person's own settings and clicks would.

// Whether the display is open and an EWMH window manager answers on the server; otherwise says on the
// standard error what the bench must run under.
bool desktopReady(Display* display);
// Gives the server's keyboard the layouts us and ru (setxkbmap); says so on the standard error when it fails.
bool useUsAndRuLayouts();
// Closes the window with exactly this title the way the window manager's close button does, and waits until
// it is no longer shown; a panel of the app only hides.
bool closeWindow(const QString& title);
