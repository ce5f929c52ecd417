#pragma once
// https://developer.apple.com/documentation/foundation/nsstring

#include <Foundation/NSObject.h>

// https://developer.apple.com/documentation/foundation/nsstringencoding
typedef NSUInteger NSStringEncoding;
// https://developer.apple.com/documentation/foundation/nsutf8stringencoding
enum : NSStringEncoding { NSUTF8StringEncoding = 4 };

@interface NSString : NSObject <NSCopying>
// https://developer.apple.com/documentation/foundation/nsstring/1497379-stringwithutf8string
+ (instancetype)stringWithUTF8String:(const char*)bytes;
// https://developer.apple.com/documentation/foundation/nsstring/1414213-length
@property(readonly) NSUInteger length;
// https://developer.apple.com/documentation/foundation/nsstring/1411189-utf8string
@property(readonly) const char* UTF8String;
// https://developer.apple.com/documentation/foundation/nsstring/1407803-isequaltostring
- (BOOL)isEqualToString:(NSString*)other;
// https://developer.apple.com/documentation/foundation/nsstring/1412307-stringbyappendingstring
- (NSString*)stringByAppendingString:(NSString*)other;
@end
