#pragma once

#include "platform/PermissionProbe.h"

// The privacy grants of macOS: Accessibility (which covers both posting keys and reading other applications'
// trees) and Input Monitoring. Their settings panes open by URL, and tccutil can take them back.
class MacPermissionProbe : public PermissionProbe {
public:
    bool isAccessibilityGranted() override;
    bool canReadAccessibilityTrees() override;
    void requestAccessibility() override;
    bool isInputMonitoringGranted() override;
    void requestInputMonitoring() override;
    GrantSettingsOpening openGrantSettings() override { return GrantSettingsOpening::byUrl; }
    bool canResetGrants() override { return true; }
};
