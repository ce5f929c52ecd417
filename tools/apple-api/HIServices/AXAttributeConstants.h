#pragma once

#include <CoreFoundation/CoreFoundation.h>

// https://developer.apple.com/documentation/applicationservices/kaxroleattribute
#define kAXRoleAttribute CFSTR("AXRole")
// https://developer.apple.com/documentation/applicationservices/kaxsubroleattribute
#define kAXSubroleAttribute CFSTR("AXSubrole")
// https://developer.apple.com/documentation/applicationservices/kaxfocusedwindowattribute
#define kAXFocusedWindowAttribute CFSTR("AXFocusedWindow")
// https://developer.apple.com/documentation/applicationservices/kaxwindowsattribute
#define kAXWindowsAttribute CFSTR("AXWindows")
// https://developer.apple.com/documentation/applicationservices/kaxminimizedattribute
#define kAXMinimizedAttribute CFSTR("AXMinimized")
// https://developer.apple.com/documentation/applicationservices/kaxpositionattribute
#define kAXPositionAttribute CFSTR("AXPosition")
// https://developer.apple.com/documentation/applicationservices/kaxsizeattribute
#define kAXSizeAttribute CFSTR("AXSize")
