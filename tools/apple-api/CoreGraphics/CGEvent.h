#pragma once

#include <CoreGraphics/CGEventTypes.h>
#include <CoreGraphics/CGGeometry.h>
#include <CoreGraphics/CGRemoteOperation.h>

extern "C" {
// https://developer.apple.com/documentation/coregraphics/cgevent/init(keyboardeventsource:virtualkey:keydown:)
CGEventRef CGEventCreateKeyboardEvent(CGEventSourceRef source, CGKeyCode virtualKey, bool keyDown);
// https://developer.apple.com/documentation/coregraphics/cgevent/flags
void CGEventSetFlags(CGEventRef event, CGEventFlags flags);
// https://developer.apple.com/documentation/coregraphics/cgevent/post(tap:)
void CGEventPost(CGEventTapLocation tap, CGEventRef event);
// https://developer.apple.com/documentation/coregraphics/cgevent/location
CGPoint CGEventGetLocation(CGEventRef event);
// https://developer.apple.com/documentation/coregraphics/cgpreflightlisteneventaccess()
bool CGPreflightListenEventAccess(void);
// https://developer.apple.com/documentation/coregraphics/cgrequestlisteneventaccess()
bool CGRequestListenEventAccess(void);
}
