#pragma once

#include <AppKit/NSRunningApplication.h>
#include <Foundation/Foundation.h>

// https://developer.apple.com/documentation/appkit/nsworkspace
@interface NSWorkspace : NSObject
// https://developer.apple.com/documentation/appkit/nsworkspace/shared
@property(class, readonly, strong) NSWorkspace* sharedWorkspace;
// https://developer.apple.com/documentation/appkit/nsworkspace/notificationcenter
@property(readonly, strong) NSNotificationCenter* notificationCenter;
// https://developer.apple.com/documentation/appkit/nsworkspace/runningapplications
@property(readonly, copy) NSArray<NSRunningApplication*>* runningApplications;
// https://developer.apple.com/documentation/appkit/nsworkspace/frontmostapplication
@property(readonly, strong) NSRunningApplication* frontmostApplication;
// https://developer.apple.com/documentation/appkit/nsworkspace/open(_:)
- (BOOL)openURL:(NSURL*)url;
// https://developer.apple.com/documentation/appkit/nsworkspace/accessibilitydisplayshouldreducetransparency
@property(readonly) BOOL accessibilityDisplayShouldReduceTransparency;
@end

extern "C" {
// https://developer.apple.com/documentation/appkit/nsworkspace/didactivateapplicationnotification
extern const NSNotificationName NSWorkspaceDidActivateApplicationNotification;
// https://developer.apple.com/documentation/appkit/nsworkspace/applicationuserinfokey
extern NSString* const NSWorkspaceApplicationKey;
}
