#pragma once

#include <Foundation/NSObject.h>

// https://developer.apple.com/documentation/foundation/operationqueue
@interface NSOperationQueue : NSObject
// https://developer.apple.com/documentation/foundation/operationqueue/main
@property(class, readonly, strong) NSOperationQueue* mainQueue;
@end
