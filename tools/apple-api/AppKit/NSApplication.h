#pragma once

#include <Foundation/Foundation.h>

// https://developer.apple.com/documentation/appkit/nsapplication
@interface NSApplication : NSObject
// https://developer.apple.com/documentation/appkit/nsapplication/deactivate()
- (void)deactivate;
@end

extern "C" {
// https://developer.apple.com/documentation/appkit/nsapp
extern __kindof NSApplication* NSApp;
}
