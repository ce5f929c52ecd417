#pragma once

#include <Foundation/NSString.h>

// https://developer.apple.com/documentation/foundation/nsappleeventdescriptor
@interface NSAppleEventDescriptor : NSObject <NSCopying>
// https://developer.apple.com/documentation/foundation/nsappleeventdescriptor/1410054-stringvalue
@property(readonly, copy) NSString* stringValue;
@end
