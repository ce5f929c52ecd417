#pragma once

#include <Foundation/Foundation.h>

// https://developer.apple.com/documentation/appkit/nscolor
@interface NSColor : NSObject <NSCopying>
// https://developer.apple.com/documentation/appkit/nscolor/1527217-clearcolor
@property(class, strong, readonly) NSColor* clearColor;
@end
