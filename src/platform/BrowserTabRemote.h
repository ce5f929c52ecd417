#pragma once

#include <QString>
#include <optional>

// Remote control of a web browser from outside: its front window's active tab, and new app windows (a
// window without an address field that shows one page). GUI thread; each call may block until the browser
// answers; failures give nullopt or are silent.
class BrowserTabRemote {
public:
    virtual ~BrowserTabRemote() = default;

    // The application identifier of the browser this remote drives.
    virtual QString applicationIdentifier() = 0;
    // The address of the front window's active tab; nullopt when the browser does not answer.
    virtual std::optional<QString> activeTabUrl() = 0;
    // Closes the front window's active tab.
    virtual void closeActiveTab() = 0;
    // Opens the address in a new app window; starting the browser may fail silently.
    virtual void openAppWindow(const QString& url) = 0;
};
