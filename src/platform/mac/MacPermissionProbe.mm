#include "platform/mac/MacPermissionProbe.h"

#include <ApplicationServices/ApplicationServices.h>
#include <Foundation/Foundation.h>

bool MacPermissionProbe::isAccessibilityGranted()
{
    return AXIsProcessTrusted();
}

bool MacPermissionProbe::canReadAccessibilityTrees()
{
    // One grant covers both on macOS.
    return AXIsProcessTrusted();
}

void MacPermissionProbe::requestAccessibility()
{
    NSDictionary* options = @{(__bridge NSString*)kAXTrustedCheckOptionPrompt : @YES};
    AXIsProcessTrustedWithOptions((__bridge CFDictionaryRef)options);
}

bool MacPermissionProbe::isInputMonitoringGranted()
{
    return CGPreflightListenEventAccess();
}

void MacPermissionProbe::requestInputMonitoring()
{
    CGRequestListenEventAccess();
}
