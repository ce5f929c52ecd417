#pragma once

#include <Foundation/NSObject.h>
#include <Foundation/NSString.h>

// https://developer.apple.com/documentation/foundation/nsbundle
@interface NSBundle : NSObject
// https://developer.apple.com/documentation/foundation/nsbundle/1495012-bundlewithpath
+ (instancetype)bundleWithPath:(NSString*)path;
// https://developer.apple.com/documentation/foundation/nsbundle/1418023-bundleidentifier
@property(readonly, copy) NSString* bundleIdentifier;
// https://developer.apple.com/documentation/foundation/nsbundle/1407973-bundlepath
@property(readonly, copy) NSString* bundlePath;
// https://developer.apple.com/documentation/foundation/nsbundle/1408696-objectforinfodictionarykey
- (id)objectForInfoDictionaryKey:(NSString*)key;
// https://developer.apple.com/documentation/foundation/nsbundle/1410989-pathforresource
- (NSString*)pathForResource:(NSString*)name ofType:(NSString*)ext;
@end
