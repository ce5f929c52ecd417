#pragma once

#include <Foundation/Foundation.h>

// https://developer.apple.com/documentation/appkit/nsscreen
@interface NSScreen : NSObject
// https://developer.apple.com/documentation/appkit/nsscreen/1388393-screens
@property(class, readonly, copy) NSArray<NSScreen*>* screens;
// https://developer.apple.com/documentation/appkit/nsscreen/1388387-frame
@property(readonly) NSRect frame;
// https://developer.apple.com/documentation/appkit/nsscreen/1388369-visibleframe
@property(readonly) NSRect visibleFrame;
@end
