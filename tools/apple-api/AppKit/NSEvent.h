#pragma once
// https://developer.apple.com/documentation/appkit/nsevent

#include <CoreGraphics/CGEventTypes.h>
#include <Foundation/Foundation.h>

@class NSWindow;

// https://developer.apple.com/documentation/appkit/nsevent/eventtype
enum NSEventType : NSUInteger {
    NSEventTypeLeftMouseDown = 1,
    NSEventTypeLeftMouseUp = 2,
    NSEventTypeRightMouseDown = 3,
    NSEventTypeKeyDown = 10,
    NSEventTypeKeyUp = 11,
    NSEventTypeOtherMouseDown = 25,
};

// https://developer.apple.com/documentation/appkit/nsevent/eventtypemask
typedef unsigned long long NSEventMask;
enum : NSEventMask {
    NSEventMaskLeftMouseDown = 1ULL << NSEventTypeLeftMouseDown,
    NSEventMaskLeftMouseUp = 1ULL << NSEventTypeLeftMouseUp,
    NSEventMaskRightMouseDown = 1ULL << NSEventTypeRightMouseDown,
    NSEventMaskKeyDown = 1ULL << NSEventTypeKeyDown,
    NSEventMaskKeyUp = 1ULL << NSEventTypeKeyUp,
    NSEventMaskOtherMouseDown = 1ULL << NSEventTypeOtherMouseDown,
};

// https://developer.apple.com/documentation/appkit/nsevent/modifierflags-swift.struct
typedef NSUInteger NSEventModifierFlags;
enum : NSEventModifierFlags {
    // https://developer.apple.com/documentation/appkit/nsevent/modifierflags-swift.struct/option
    NSEventModifierFlagOption = 1 << 19,
};

@interface NSEvent : NSObject <NSCopying>
// https://developer.apple.com/documentation/appkit/nsevent/type
@property(readonly) NSEventType type;
// https://developer.apple.com/documentation/appkit/nsevent/modifierflags-swift.property
@property(readonly) NSEventModifierFlags modifierFlags;
// https://developer.apple.com/documentation/appkit/nsevent/keycode
@property(readonly) unsigned short keyCode;
// https://developer.apple.com/documentation/appkit/nsevent/window
@property(readonly, weak) NSWindow* window;
// https://developer.apple.com/documentation/appkit/nsevent/cgevent
@property(readonly) CGEventRef CGEvent;
// https://developer.apple.com/documentation/appkit/nsevent/addglobalmonitorforevents(matching:handler:)
+ (id)addGlobalMonitorForEventsMatchingMask:(NSEventMask)mask handler:(void (^)(NSEvent* event))block;
// https://developer.apple.com/documentation/appkit/nsevent/addlocalmonitorforevents(matching:handler:)
+ (id)addLocalMonitorForEventsMatchingMask:(NSEventMask)mask handler:(NSEvent* (^)(NSEvent* event))block;
// https://developer.apple.com/documentation/appkit/nsevent/removemonitor(_:)
+ (void)removeMonitor:(id)eventMonitor;
@end
