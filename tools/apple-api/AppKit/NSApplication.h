#pragma once

#include <AppKit/NSResponder.h>

// https://developer.apple.com/documentation/appkit/nsapplication
@interface NSApplication : NSResponder
// https://developer.apple.com/documentation/appkit/nsapplication/1428468-activateignoringotherapps
- (void)activateIgnoringOtherApps:(BOOL)ignoreOtherApps;
@end

// https://developer.apple.com/documentation/appkit/nsapp
extern "C" __kindof NSApplication* NSApp;
