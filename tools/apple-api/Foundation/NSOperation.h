#pragma once

#include <Foundation/NSObject.h>

// https://developer.apple.com/documentation/foundation/nsoperationqueue
@interface NSOperationQueue : NSObject
// https://developer.apple.com/documentation/foundation/nsoperationqueue/1409193-mainqueue
@property(class, readonly, strong) NSOperationQueue* mainQueue;
@end
