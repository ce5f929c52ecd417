#pragma once

#include "AtspiBusActivation.h"
#include "X11DisplayConnection.h"
#include "platform/PermissionProbe.h"

#include <QString>

// An X server asks no grants: whoever may connect posts synthetic keys through XTest and listens to input
// through XInput 2, so Input Monitoring is granted exactly when the server offers both. Other applications'
// trees are readable when the desktop's accessibility is on (AtspiBusActivation), which is what a request
// turns on. The grants have no settings of their own; the desktop's accessibility settings stand for them,
// and there is nothing to reset.
class X11PermissionProbe : public PermissionProbe {
public:
    // The display must outlive this object; null means no grants. currentDesktop is XDG_CURRENT_DESKTOP.
    explicit X11PermissionProbe(Display* display,
                                QString currentDesktop = qEnvironmentVariable("XDG_CURRENT_DESKTOP"));

    bool isAccessibilityGranted() override { return m_hasXTest; }
    bool canReadAccessibilityTrees() override { return m_activation.isEnabled().value_or(false); }
    void requestAccessibility() override { m_activation.enable(); }
    bool isInputMonitoringGranted() override { return m_hasXTest && m_hasXInput2; }
    void requestInputMonitoring() override {}
    GrantSettingsOpening openGrantSettings() override;
    bool canResetGrants() override { return false; }

private:
    AtspiBusActivation m_activation;
    QString m_currentDesktop;
    bool m_hasXTest = false;
    bool m_hasXInput2 = false;
};
