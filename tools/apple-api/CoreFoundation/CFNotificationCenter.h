#pragma once

#include <CoreFoundation/CoreFoundation.h>

// https://developer.apple.com/documentation/corefoundation/cfnotificationcenter
typedef struct __CFNotificationCenter* CFNotificationCenterRef;
// https://developer.apple.com/documentation/corefoundation/cfnotificationname
typedef CFStringRef CFNotificationName;
// https://developer.apple.com/documentation/corefoundation/cfnotificationcallback
typedef void (*CFNotificationCallback)(CFNotificationCenterRef center, void* observer, CFNotificationName name,
                                       const void* object, CFDictionaryRef userInfo);

// https://developer.apple.com/documentation/corefoundation/cfnotificationsuspensionbehavior
enum CFNotificationSuspensionBehavior : CFIndex {
    CFNotificationSuspensionBehaviorDrop = 1,
    CFNotificationSuspensionBehaviorCoalesce = 2,
    CFNotificationSuspensionBehaviorHold = 3,
    CFNotificationSuspensionBehaviorDeliverImmediately = 4,
};

extern "C" {
// https://developer.apple.com/documentation/corefoundation/cfnotificationcentergetdistributedcenter()
CFNotificationCenterRef CFNotificationCenterGetDistributedCenter(void);
// https://developer.apple.com/documentation/corefoundation/cfnotificationcenteraddobserver(_:_:_:_:_:_:)
void CFNotificationCenterAddObserver(CFNotificationCenterRef center, const void* observer,
                                     CFNotificationCallback callBack, CFStringRef name, const void* object,
                                     CFNotificationSuspensionBehavior suspensionBehavior);
// https://developer.apple.com/documentation/corefoundation/cfnotificationcenterremoveobserver(_:_:_:_:)
void CFNotificationCenterRemoveObserver(CFNotificationCenterRef center, const void* observer,
                                        CFNotificationName name, const void* object);
}
