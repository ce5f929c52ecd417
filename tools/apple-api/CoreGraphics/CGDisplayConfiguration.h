#pragma once

#include <CoreGraphics/CGDirectDisplay.h>
#include <CoreGraphics/CGError.h>
#include <mach/boolean.h>
#include <stdint.h>

// https://developer.apple.com/documentation/coregraphics/cgdisplayconfigref
typedef struct _CGDisplayConfigRef* CGDisplayConfigRef;

// https://developer.apple.com/documentation/coregraphics/cgconfigureoption
typedef uint32_t CGConfigureOption;
enum : CGConfigureOption { kCGConfigureForSession = 1 };

// https://developer.apple.com/documentation/coregraphics/cgdisplaychangesummaryflags
typedef uint32_t CGDisplayChangeSummaryFlags;
enum : CGDisplayChangeSummaryFlags {
    kCGDisplayBeginConfigurationFlag = 1 << 0,
    kCGDisplayAddFlag = 1 << 4,
    kCGDisplayRemoveFlag = 1 << 5,
    kCGDisplayEnabledFlag = 1 << 8,
    kCGDisplayDisabledFlag = 1 << 9,
};

// https://developer.apple.com/documentation/coregraphics/cgdisplayreconfigurationcallback
typedef void (*CGDisplayReconfigurationCallBack)(CGDirectDisplayID display, CGDisplayChangeSummaryFlags flags,
                                                 void* userInfo);

extern "C" {
// https://developer.apple.com/documentation/coregraphics/cgbegindisplayconfiguration(_:)
CGError CGBeginDisplayConfiguration(CGDisplayConfigRef* config);
// https://developer.apple.com/documentation/coregraphics/cgcompletedisplayconfiguration(_:_:)
CGError CGCompleteDisplayConfiguration(CGDisplayConfigRef config, CGConfigureOption option);
// https://developer.apple.com/documentation/coregraphics/cgcanceldisplayconfiguration(_:)
CGError CGCancelDisplayConfiguration(CGDisplayConfigRef config);
// https://developer.apple.com/documentation/coregraphics/cgdisplayregisterreconfigurationcallback(_:_:)
CGError CGDisplayRegisterReconfigurationCallback(CGDisplayReconfigurationCallBack callback, void* userInfo);
// https://developer.apple.com/documentation/coregraphics/cgdisplayremovereconfigurationcallback(_:_:)
CGError CGDisplayRemoveReconfigurationCallback(CGDisplayReconfigurationCallBack callback, void* userInfo);
// https://developer.apple.com/documentation/coregraphics/cgdisplayisbuiltin(_:)
boolean_t CGDisplayIsBuiltin(CGDirectDisplayID display);
// https://developer.apple.com/documentation/coregraphics/cgdisplayisonline(_:)
boolean_t CGDisplayIsOnline(CGDirectDisplayID display);
// https://developer.apple.com/documentation/coregraphics/cgdisplayisasleep(_:)
boolean_t CGDisplayIsAsleep(CGDirectDisplayID display);
// https://developer.apple.com/documentation/coregraphics/cgdisplayisinmirrorset(_:)
boolean_t CGDisplayIsInMirrorSet(CGDirectDisplayID display);
}
