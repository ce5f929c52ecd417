#pragma once

#include <Foundation/Foundation.h>

// https://developer.apple.com/documentation/appkit/nsworkspace
@interface NSWorkspace : NSObject
// https://developer.apple.com/documentation/appkit/nsworkspace/1530344-sharedworkspace
@property(class, readonly, strong) NSWorkspace* sharedWorkspace;
// https://developer.apple.com/documentation/appkit/nsworkspace/1534810-openurl
- (BOOL)openURL:(NSURL*)url;
// https://developer.apple.com/documentation/appkit/nsworkspace/1533006-accessibilitydisplayshouldreducet
@property(readonly) BOOL accessibilityDisplayShouldReduceTransparency;
@end
