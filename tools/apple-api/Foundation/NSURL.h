#pragma once

#include <Foundation/NSObject.h>
#include <Foundation/NSString.h>

// https://developer.apple.com/documentation/foundation/nsurl
@interface NSURL : NSObject <NSCopying>
// https://developer.apple.com/documentation/foundation/nsurl/init(string:)
+ (instancetype)URLWithString:(NSString*)URLString;
// https://developer.apple.com/documentation/foundation/nsurl/fileurl(withpath:)
+ (NSURL*)fileURLWithPath:(NSString*)path;
@end
