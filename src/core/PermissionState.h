#pragma once

// The two system grants the exchange with other applications needs.
struct PermissionState {
    bool accessibilityGranted = false;
    bool inputMonitoringGranted = false;

    bool operator==(const PermissionState&) const = default;
};
