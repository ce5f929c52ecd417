#pragma once

#include <AppKit/NSResponder.h>
#include <AppKit/NSRunningApplication.h>
#include <Foundation/Foundation.h>

// https://developer.apple.com/documentation/appkit/nsapplication
@interface NSApplication : NSResponder
// https://developer.apple.com/documentation/appkit/nsapplication/deactivate()
- (void)deactivate;
// https://developer.apple.com/documentation/appkit/nsapplication/activate(ignoringotherapps:)
- (void)activateIgnoringOtherApps:(BOOL)ignoreOtherApps;
// https://developer.apple.com/documentation/appkit/nsapplication/setactivationpolicy(_:)
- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)activationPolicy;
@end

extern "C" {
// https://developer.apple.com/documentation/appkit/nsapp
extern __kindof NSApplication* NSApp;
}
