#pragma once

#include <QString>

// One application with a window on the desktop, as seen at the moment it was looked up.
struct RunningApplication {
    qint32 processIdentifier = 0;
    // Stable identifier of the application (the bundle identifier, or the window class); empty when unknown.
    QString bundleIdentifier;
    QString name;
    // Whether it owned the frontmost window when it was looked up.
    bool isActive = false;

    bool operator==(const RunningApplication&) const = default;
};
