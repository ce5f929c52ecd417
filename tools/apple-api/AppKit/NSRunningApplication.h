#pragma once

#include <Foundation/Foundation.h>
#include <sys/types.h>

// https://developer.apple.com/documentation/appkit/nsapplication/activationpolicy
typedef NSInteger NSApplicationActivationPolicy;
enum : NSApplicationActivationPolicy { NSApplicationActivationPolicyRegular = 0 };

// https://developer.apple.com/documentation/appkit/nsapplication/activationoptions
typedef NSUInteger NSApplicationActivationOptions;

// https://developer.apple.com/documentation/appkit/nsrunningapplication
@interface NSRunningApplication : NSObject
// https://developer.apple.com/documentation/appkit/nsrunningapplication/1529707-processidentifier
@property(readonly) pid_t processIdentifier;
// https://developer.apple.com/documentation/appkit/nsrunningapplication/1529140-bundleidentifier
@property(readonly, copy) NSString* bundleIdentifier;
// https://developer.apple.com/documentation/appkit/nsrunningapplication/1526751-localizedname
@property(readonly, copy) NSString* localizedName;
// https://developer.apple.com/documentation/appkit/nsrunningapplication/1528778-active
@property(readonly, getter=isActive) BOOL active;
// https://developer.apple.com/documentation/appkit/nsrunningapplication/1533209-activationpolicy
@property(readonly) NSApplicationActivationPolicy activationPolicy;
// https://developer.apple.com/documentation/appkit/nsrunningapplication/1528725-activatewithoptions
- (BOOL)activateWithOptions:(NSApplicationActivationOptions)options;
// https://developer.apple.com/documentation/appkit/nsrunningapplication/1528815-runningapplicationwithprocessidentifier
+ (instancetype)runningApplicationWithProcessIdentifier:(pid_t)pid;
// https://developer.apple.com/documentation/appkit/nsrunningapplication/1530798-runningapplicationswithbundleidentifier
+ (NSArray<NSRunningApplication*>*)runningApplicationsWithBundleIdentifier:(NSString*)bundleIdentifier;
@end
