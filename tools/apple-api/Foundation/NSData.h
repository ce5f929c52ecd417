#pragma once

#include <Foundation/NSObject.h>

// https://developer.apple.com/documentation/foundation/nsdata
@interface NSData : NSObject
// https://developer.apple.com/documentation/foundation/nsdata/1410616-bytes
@property(readonly) const void* bytes;
// https://developer.apple.com/documentation/foundation/nsdata/1416769-length
@property(readonly) NSUInteger length;
@end
