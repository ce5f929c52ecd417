#pragma once

#include <CoreGraphics/CGError.h>
#include <stdint.h>

// https://developer.apple.com/documentation/coregraphics/cgdirectdisplayid
typedef uint32_t CGDirectDisplayID;

extern "C" {
// https://developer.apple.com/documentation/coregraphics/cggetactivedisplaylist(_:_:_:)
CGError CGGetActiveDisplayList(uint32_t maxDisplays, CGDirectDisplayID* activeDisplays,
                               uint32_t* displayCount);
// https://developer.apple.com/documentation/coregraphics/cggetonlinedisplaylist(_:_:_:)
CGError CGGetOnlineDisplayList(uint32_t maxDisplays, CGDirectDisplayID* onlineDisplays,
                               uint32_t* displayCount);
}
