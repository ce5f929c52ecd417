#pragma once

#include <AppKit/NSRunningApplication.h>
#include <Foundation/Foundation.h>

// https://developer.apple.com/documentation/appkit/nsworkspace
@interface NSWorkspace : NSObject
// https://developer.apple.com/documentation/appkit/nsworkspace/1530344-sharedworkspace
@property(class, readonly, strong) NSWorkspace* sharedWorkspace;
// https://developer.apple.com/documentation/appkit/nsworkspace/1535049-notificationcenter
@property(readonly, strong) NSNotificationCenter* notificationCenter;
// https://developer.apple.com/documentation/appkit/nsworkspace/1534059-runningapplications
@property(readonly, copy) NSArray<NSRunningApplication*>* runningApplications;
// https://developer.apple.com/documentation/appkit/nsworkspace/1532097-frontmostapplication
@property(readonly, strong) NSRunningApplication* frontmostApplication;
@end

extern "C" {
// https://developer.apple.com/documentation/appkit/nsworkspace/1528737-didactivateapplicationnotification
extern const NSNotificationName NSWorkspaceDidActivateApplicationNotification;
// https://developer.apple.com/documentation/appkit/nsworkspaceapplicationkey
extern NSString* const NSWorkspaceApplicationKey;
}
