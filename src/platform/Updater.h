#pragma once

// The platform's own in-place updater, where one exists. On platforms without one no object is made and
// callers fall back to opening the download link.
class Updater {
public:
    virtual ~Updater() = default;

    // GUI thread, non-blocking. Whether a check may start now (false while one runs).
    virtual bool canCheckForUpdates() const = 0;
    // GUI thread, non-blocking; the updater shows its own interface from here on.
    virtual void checkForUpdates() = 0;
};
