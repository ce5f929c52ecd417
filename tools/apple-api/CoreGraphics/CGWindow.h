#pragma once

#include <CoreFoundation/CoreFoundation.h>
#include <stdint.h>

// https://developer.apple.com/documentation/coregraphics/cgwindowid
typedef uint32_t CGWindowID;
// https://developer.apple.com/documentation/coregraphics/kcgnullwindowid
enum : CGWindowID { kCGNullWindowID = 0 };

// https://developer.apple.com/documentation/coregraphics/cgwindowlistoption
typedef uint32_t CGWindowListOption;
enum : CGWindowListOption {
    kCGWindowListOptionOnScreenOnly = 1 << 0,
    kCGWindowListOptionIncludingWindow = 1 << 3,
    kCGWindowListExcludeDesktopElements = 1 << 4,
};

extern "C" {
// https://developer.apple.com/documentation/coregraphics/cgwindowlistcopywindowinfo(_:_:)
CFArrayRef CGWindowListCopyWindowInfo(CGWindowListOption option, CGWindowID relativeToWindow);
// https://developer.apple.com/documentation/coregraphics/kcgwindownumber
extern const CFStringRef kCGWindowNumber;
// https://developer.apple.com/documentation/coregraphics/kcgwindowownerpid
extern const CFStringRef kCGWindowOwnerPID;
// https://developer.apple.com/documentation/coregraphics/kcgwindowlayer
extern const CFStringRef kCGWindowLayer;
// https://developer.apple.com/documentation/coregraphics/kcgwindowalpha
extern const CFStringRef kCGWindowAlpha;
// https://developer.apple.com/documentation/coregraphics/kcgwindowbounds
extern const CFStringRef kCGWindowBounds;
}
