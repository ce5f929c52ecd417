#pragma once
// https://developer.apple.com/documentation/foundation/nsdata

#include <Foundation/NSObject.h>

@interface NSData : NSObject <NSCopying>
// https://developer.apple.com/documentation/foundation/nsdata/bytes
@property(readonly) const void* bytes;
// https://developer.apple.com/documentation/foundation/nsdata/length
@property(readonly) NSUInteger length;
// https://developer.apple.com/documentation/foundation/nsdata/init(bytes:length:)
+ (instancetype)dataWithBytes:(const void*)bytes length:(NSUInteger)length;
@end
