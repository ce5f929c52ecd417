#pragma once

#include "X11DisplayConnection.h"
#include "platform/PermissionProbe.h"

// An X server asks no grants: whoever may connect may read the key map and post synthetic keys through
// XTest. Both grants are there exactly when the display is and has XTest; the requests show nothing.
class X11PermissionProbe : public PermissionProbe {
public:
    // The display must outlive this object; null means no grants.
    explicit X11PermissionProbe(Display* display);

    bool isAccessibilityGranted() override { return m_hasXTest; }
    void requestAccessibility() override {}
    bool isInputMonitoringGranted() override { return m_display != nullptr; }
    void requestInputMonitoring() override {}

private:
    Display* m_display;
    bool m_hasXTest = false;
};
