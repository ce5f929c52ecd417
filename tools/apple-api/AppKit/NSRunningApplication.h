#pragma once

#include <Foundation/Foundation.h>
#include <sys/types.h>

// https://developer.apple.com/documentation/appkit/nsapplication/activationpolicy-swift.enum
typedef NSInteger NSApplicationActivationPolicy;
enum : NSApplicationActivationPolicy {
    // https://developer.apple.com/documentation/appkit/nsapplication/activationpolicy-swift.enum/regular
    NSApplicationActivationPolicyRegular = 0,
    // https://developer.apple.com/documentation/appkit/nsapplication/activationpolicy-swift.enum/accessory
    NSApplicationActivationPolicyAccessory = 1,
};

// https://developer.apple.com/documentation/appkit/nsapplication/activationoptions
typedef NSUInteger NSApplicationActivationOptions;

// https://developer.apple.com/documentation/appkit/nsrunningapplication
@interface NSRunningApplication : NSObject
// https://developer.apple.com/documentation/appkit/nsrunningapplication/processidentifier
@property(readonly) pid_t processIdentifier;
// https://developer.apple.com/documentation/appkit/nsrunningapplication/bundleidentifier
@property(readonly, copy) NSString* bundleIdentifier;
// https://developer.apple.com/documentation/appkit/nsrunningapplication/localizedname
@property(readonly, copy) NSString* localizedName;
// https://developer.apple.com/documentation/appkit/nsrunningapplication/isactive
@property(readonly, getter=isActive) BOOL active;
// https://developer.apple.com/documentation/appkit/nsrunningapplication/activationpolicy
@property(readonly) NSApplicationActivationPolicy activationPolicy;
// https://developer.apple.com/documentation/appkit/nsrunningapplication/activate(options:)
- (BOOL)activateWithOptions:(NSApplicationActivationOptions)options;
// https://developer.apple.com/documentation/appkit/nsrunningapplication/init(processidentifier:)
+ (instancetype)runningApplicationWithProcessIdentifier:(pid_t)pid;
// https://developer.apple.com/documentation/appkit/nsrunningapplication/runningapplications(withbundleidentifier:)
+ (NSArray<NSRunningApplication*>*)runningApplicationsWithBundleIdentifier:(NSString*)bundleIdentifier;
@end
