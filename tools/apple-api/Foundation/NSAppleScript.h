#pragma once

#include <Foundation/NSAppleEventDescriptor.h>
#include <Foundation/NSCollections.h>

// https://developer.apple.com/documentation/foundation/nsapplescript
@interface NSAppleScript : NSObject <NSCopying>
// https://developer.apple.com/documentation/foundation/nsapplescript/1410042-initwithsource
- (instancetype)initWithSource:(NSString*)source;
// https://developer.apple.com/documentation/foundation/nsapplescript/1410040-executeandreturnerror
- (NSAppleEventDescriptor*)executeAndReturnError:(NSDictionary<NSString*, id>**)errorInfo;
@end
