#pragma once

#include <AppKit/NSResponder.h>

@class NSWindow;

// https://developer.apple.com/documentation/appkit/nsview
@interface NSView : NSResponder
// https://developer.apple.com/documentation/appkit/nsview/1483301-window
@property(readonly, assign) NSWindow* window;
@end
