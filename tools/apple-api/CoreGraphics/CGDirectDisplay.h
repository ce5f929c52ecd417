#pragma once

#include <CoreGraphics/CGError.h>
#include <stdint.h>

// https://developer.apple.com/documentation/coregraphics/cgdirectdisplayid
typedef uint32_t CGDirectDisplayID;

extern "C" {
// https://developer.apple.com/documentation/coregraphics/1454964-cggetactivedisplaylist
CGError CGGetActiveDisplayList(uint32_t maxDisplays, CGDirectDisplayID* activeDisplays,
                               uint32_t* displayCount);
// https://developer.apple.com/documentation/coregraphics/1455475-cggetonlinedisplaylist
CGError CGGetOnlineDisplayList(uint32_t maxDisplays, CGDirectDisplayID* onlineDisplays,
                               uint32_t* displayCount);
}
