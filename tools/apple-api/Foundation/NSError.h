#pragma once

#include <Foundation/NSObject.h>
#include <Foundation/NSString.h>

// https://developer.apple.com/documentation/foundation/nserror
@interface NSError : NSObject
// https://developer.apple.com/documentation/foundation/nserror/localizeddescription
@property(readonly, copy) NSString* localizedDescription;
@end
