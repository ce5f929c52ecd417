#pragma once

#include <Foundation/Foundation.h>

// https://developer.apple.com/documentation/appkit/nsscreen
@interface NSScreen : NSObject
// https://developer.apple.com/documentation/appkit/nsscreen/screens
@property(class, readonly, copy) NSArray<NSScreen*>* screens;
// https://developer.apple.com/documentation/appkit/nsscreen/frame
@property(readonly) NSRect frame;
// https://developer.apple.com/documentation/appkit/nsscreen/visibleframe
@property(readonly) NSRect visibleFrame;
@end
