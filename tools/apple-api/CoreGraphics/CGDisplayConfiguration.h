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
// https://developer.apple.com/documentation/coregraphics/1455235-cgbegindisplayconfiguration
CGError CGBeginDisplayConfiguration(CGDisplayConfigRef* config);
// https://developer.apple.com/documentation/coregraphics/1455539-cgcompletedisplayconfiguration
CGError CGCompleteDisplayConfiguration(CGDisplayConfigRef config, CGConfigureOption option);
// https://developer.apple.com/documentation/coregraphics/1455401-cgcanceldisplayconfiguration
CGError CGCancelDisplayConfiguration(CGDisplayConfigRef config);
// https://developer.apple.com/documentation/coregraphics/1455336-cgdisplayregisterreconfigurationcallback
CGError CGDisplayRegisterReconfigurationCallback(CGDisplayReconfigurationCallBack callback, void* userInfo);
// https://developer.apple.com/documentation/coregraphics/1455522-cgdisplayremovereconfigurationcallback
CGError CGDisplayRemoveReconfigurationCallback(CGDisplayReconfigurationCallBack callback, void* userInfo);
// https://developer.apple.com/documentation/coregraphics/1454354-cgdisplayisbuiltin
boolean_t CGDisplayIsBuiltin(CGDirectDisplayID display);
// https://developer.apple.com/documentation/coregraphics/1455313-cgdisplayisonline
boolean_t CGDisplayIsOnline(CGDirectDisplayID display);
// https://developer.apple.com/documentation/coregraphics/1455413-cgdisplayisasleep
boolean_t CGDisplayIsAsleep(CGDirectDisplayID display);
// https://developer.apple.com/documentation/coregraphics/1454964-cgdisplayisinmirrorset
boolean_t CGDisplayIsInMirrorSet(CGDirectDisplayID display);
}
