#pragma once

// The system grants that reading other applications and posting synthetic keys depend on.
class PermissionProbe {
public:
    virtual ~PermissionProbe() = default;

    // Whether this program may read other applications' accessibility trees and post synthetic keys.
    // GUI thread; non-blocking.
    virtual bool isAccessibilityGranted() = 0;
    // Shows the system's request for that grant where there is one; returns at once. GUI thread.
    virtual void requestAccessibility() = 0;
    // Whether this program may observe keyboard input of other applications. GUI thread; non-blocking.
    virtual bool isInputMonitoringGranted() = 0;
    // Shows the system's request for that grant where there is one; returns at once. GUI thread.
    virtual void requestInputMonitoring() = 0;
};
