#pragma once

#include <Foundation/NSString.h>

// https://developer.apple.com/documentation/foundation/nsurl
@interface NSURL : NSObject <NSCopying>
// https://developer.apple.com/documentation/foundation/nsurl/1572047-urlwithstring
+ (instancetype)URLWithString:(NSString*)URLString;
// https://developer.apple.com/documentation/foundation/nsurl/1410828-fileurlwithpath
+ (NSURL*)fileURLWithPath:(NSString*)path;
@end
