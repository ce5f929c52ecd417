#pragma once

#include <Foundation/NSCollections.h>
#include <Foundation/NSError.h>
#include <Foundation/NSObject.h>
#include <Foundation/NSString.h>

// https://developer.apple.com/documentation/foundation/nsfilemanager
@interface NSFileManager : NSObject
// https://developer.apple.com/documentation/foundation/nsfilemanager/1409234-defaultmanager
@property(class, readonly, strong) NSFileManager* defaultManager;
// https://developer.apple.com/documentation/foundation/nsfilemanager/1414584-contentsofdirectoryatpath
- (NSArray<NSString*>*)contentsOfDirectoryAtPath:(NSString*)path error:(NSError**)error;
// https://developer.apple.com/documentation/foundation/nsfilemanager/1409751-displaynameatpath
- (NSString*)displayNameAtPath:(NSString*)path;
@end
