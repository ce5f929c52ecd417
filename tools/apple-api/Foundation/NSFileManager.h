#pragma once

#include <Foundation/NSCollections.h>
#include <Foundation/NSError.h>
#include <Foundation/NSObject.h>
#include <Foundation/NSString.h>

// https://developer.apple.com/documentation/foundation/filemanager
@interface NSFileManager : NSObject
// https://developer.apple.com/documentation/foundation/filemanager/default
@property(class, readonly, strong) NSFileManager* defaultManager;
// https://developer.apple.com/documentation/foundation/filemanager/contentsofdirectory(atpath:)
- (NSArray<NSString*>*)contentsOfDirectoryAtPath:(NSString*)path error:(NSError**)error;
// https://developer.apple.com/documentation/foundation/filemanager/displayname(atpath:)
- (NSString*)displayNameAtPath:(NSString*)path;
@end
