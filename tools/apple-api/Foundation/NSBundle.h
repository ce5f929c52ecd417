#pragma once

#include <Foundation/NSObject.h>
#include <Foundation/NSString.h>

// https://developer.apple.com/documentation/foundation/bundle
@interface NSBundle : NSObject
// https://developer.apple.com/documentation/foundation/bundle/init(path:)
+ (instancetype)bundleWithPath:(NSString*)path;
// https://developer.apple.com/documentation/foundation/bundle/bundleidentifier
@property(readonly, copy) NSString* bundleIdentifier;
// https://developer.apple.com/documentation/foundation/bundle/bundlepath
@property(readonly, copy) NSString* bundlePath;
// https://developer.apple.com/documentation/foundation/bundle/object(forinfodictionarykey:)
- (id)objectForInfoDictionaryKey:(NSString*)key;
// https://developer.apple.com/documentation/foundation/bundle/path(forresource:oftype:)
- (NSString*)pathForResource:(NSString*)name ofType:(NSString*)ext;
@end
