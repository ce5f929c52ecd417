#pragma once

#include <Foundation/NSCollections.h>
#include <Foundation/NSObject.h>
#include <Foundation/NSString.h>

@class NSOperationQueue;

// https://developer.apple.com/documentation/foundation/nsnotificationname
typedef NSString* NSNotificationName;

// https://developer.apple.com/documentation/foundation/nsnotification
@interface NSNotification : NSObject
// https://developer.apple.com/documentation/foundation/nsnotification/1409222-userinfo
@property(readonly, copy) NSDictionary* userInfo;
@end

// https://developer.apple.com/documentation/foundation/nsnotificationcenter
@interface NSNotificationCenter : NSObject
// https://developer.apple.com/documentation/foundation/nsnotificationcenter/1411723-addobserverforname
- (id)addObserverForName:(NSNotificationName)name
                  object:(id)obj
                   queue:(NSOperationQueue*)queue
              usingBlock:(void (^)(NSNotification* notification))block;
// https://developer.apple.com/documentation/foundation/nsnotificationcenter/1413994-removeobserver
- (void)removeObserver:(id)observer;
@end
