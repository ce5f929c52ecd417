#pragma once

// How a request to open the system's settings for the grants ended.
enum class GrantSettingsOpening {
    // The system's own settings program was started.
    opened,
    // The system opens its settings panes by URL; the caller opens the pane's URL.
    byUrl,
    // No settings for the grants are known on this system, or their program could not be started.
    unknown,
};

// The system grants that reading other applications and posting synthetic keys depend on.
class PermissionProbe {
public:
    virtual ~PermissionProbe() = default;

    // Whether this program may post synthetic keys into other applications (on macOS the same grant also
    // opens their accessibility trees). GUI thread; non-blocking.
    virtual bool isAccessibilityGranted() = 0;
    // Whether other applications' accessibility trees answer this program: what the Accessibility grant
    // means to the user. GUI thread; blocks for a bounded moment at most.
    virtual bool canReadAccessibilityTrees() = 0;
    // Asks for accessibility: shows the system's request or turns the desktop's accessibility on; returns at
    // once, the system may take a moment to apply it. GUI thread.
    virtual void requestAccessibility() = 0;
    // Whether this program may observe keyboard input of other applications. GUI thread; non-blocking.
    virtual bool isInputMonitoringGranted() = 0;
    // Shows the system's request for that grant where there is one; returns at once. GUI thread.
    virtual void requestInputMonitoring() = 0;
    // Opens the system's own settings where the grants are given; returns at once. GUI thread.
    virtual GrantSettingsOpening openGrantSettings() = 0;
    // Whether the system keeps per-program grants that its reset tool can take back.
    virtual bool canResetGrants() = 0;
};
