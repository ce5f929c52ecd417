#pragma once

#include <Foundation/NSCollections.h>
#include <Foundation/NSObject.h>
#include <Foundation/NSString.h>

@class NSOperationQueue;

// https://developer.apple.com/documentation/foundation/nsnotificationname
typedef NSString* NSNotificationName;

// https://developer.apple.com/documentation/foundation/nsnotification
@interface NSNotification : NSObject
// https://developer.apple.com/documentation/foundation/nsnotification/userinfo
@property(readonly, copy) NSDictionary* userInfo;
@end

// https://developer.apple.com/documentation/foundation/notificationcenter
@interface NSNotificationCenter : NSObject
// https://developer.apple.com/documentation/foundation/notificationcenter/addobserver(forname:object:queue:using:)
- (id)addObserverForName:(NSNotificationName)name
                  object:(id)obj
                   queue:(NSOperationQueue*)queue
              usingBlock:(void (^)(NSNotification* notification))block;
// https://developer.apple.com/documentation/foundation/notificationcenter/removeobserver(_:)
- (void)removeObserver:(id)observer;
@end
