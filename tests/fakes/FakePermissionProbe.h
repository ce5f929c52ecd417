#pragma once

#include "platform/PermissionProbe.h"

// Grants as scripted; a request grants what grantsOnRequest says. Reading trees follows the accessibility
// grant, as on macOS.
class FakePermissionProbe : public PermissionProbe {
public:
    bool accessibility = true;
    bool inputMonitoring = true;
    bool grantsOnRequest = false;
    int requests = 0;
    GrantSettingsOpening settings = GrantSettingsOpening::byUrl;
    bool resettable = true;

    bool isAccessibilityGranted() override { return accessibility; }
    bool canReadAccessibilityTrees() override { return accessibility; }
    void requestAccessibility() override
    {
        ++requests;
        accessibility = accessibility || grantsOnRequest;
    }
    bool isInputMonitoringGranted() override { return inputMonitoring; }
    void requestInputMonitoring() override
    {
        ++requests;
        inputMonitoring = inputMonitoring || grantsOnRequest;
    }
    GrantSettingsOpening openGrantSettings() override { return settings; }
    bool canResetGrants() override { return resettable; }
};
