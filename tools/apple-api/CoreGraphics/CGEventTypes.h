#pragma once

#include <stdint.h>

// https://developer.apple.com/documentation/coregraphics/cgevent
typedef struct __CGEvent* CGEventRef;
// https://developer.apple.com/documentation/coregraphics/cgeventsource
typedef struct __CGEventSource* CGEventSourceRef;

// https://developer.apple.com/documentation/coregraphics/cgeventflags
typedef uint64_t CGEventFlags;
enum : uint64_t {
    // https://developer.apple.com/documentation/coregraphics/cgeventflags/maskshift
    kCGEventFlagMaskShift = 0x00020000,
    // https://developer.apple.com/documentation/coregraphics/cgeventflags/maskcontrol
    kCGEventFlagMaskControl = 0x00040000,
    // https://developer.apple.com/documentation/coregraphics/cgeventflags/maskalternate
    kCGEventFlagMaskAlternate = 0x00080000,
    // https://developer.apple.com/documentation/coregraphics/cgeventflags/maskcommand
    kCGEventFlagMaskCommand = 0x00100000,
};

// https://developer.apple.com/documentation/coregraphics/cgeventtaplocation
enum CGEventTapLocation : uint32_t {
    kCGHIDEventTap = 0,
    kCGSessionEventTap = 1,
    kCGAnnotatedSessionEventTap = 2,
};

// https://developer.apple.com/documentation/coregraphics/cgeventsourcestateid
enum CGEventSourceStateID : int32_t {
    kCGEventSourceStatePrivate = -1,
    kCGEventSourceStateCombinedSessionState = 0,
    kCGEventSourceStateHIDSystemState = 1,
};
