#pragma once

#include <Foundation/NSObject.h>

// https://developer.apple.com/documentation/foundation/nsdata
@interface NSData : NSObject
// https://developer.apple.com/documentation/foundation/nsdata/bytes
@property(readonly) const void* bytes;
// https://developer.apple.com/documentation/foundation/nsdata/length
@property(readonly) NSUInteger length;
@end
