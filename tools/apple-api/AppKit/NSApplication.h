#pragma once

#include <AppKit/NSResponder.h>

// https://developer.apple.com/documentation/appkit/nsapplication/activationpolicy
enum NSApplicationActivationPolicy : NSInteger {
    // https://developer.apple.com/documentation/appkit/nsapplication/activationpolicy/regular
    NSApplicationActivationPolicyRegular = 0,
    // https://developer.apple.com/documentation/appkit/nsapplication/activationpolicy/accessory
    NSApplicationActivationPolicyAccessory = 1,
};

// https://developer.apple.com/documentation/appkit/nsapplication
@interface NSApplication : NSResponder
// https://developer.apple.com/documentation/appkit/nsapplication/1428468-activateignoringotherapps
- (void)activateIgnoringOtherApps:(BOOL)ignoreOtherApps;
// https://developer.apple.com/documentation/appkit/nsapplication/1428621-setactivationpolicy
- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)activationPolicy;
@end

// https://developer.apple.com/documentation/appkit/nsapp
extern "C" __kindof NSApplication* NSApp;
