#pragma once

#include "platform/PermissionProbe.h"

// Grants as scripted; a request grants what grantsOnRequest says.
class FakePermissionProbe : public PermissionProbe {
public:
    bool accessibility = true;
    bool inputMonitoring = true;
    bool grantsOnRequest = false;
    int requests = 0;

    bool isAccessibilityGranted() override { return accessibility; }
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
};
