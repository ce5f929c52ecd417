#pragma once

#include <AppKit/NSWindow.h>

// https://developer.apple.com/documentation/appkit/nspanel
@interface NSPanel : NSWindow
// https://developer.apple.com/documentation/appkit/nspanel/1531901-floatingpanel
@property(getter=isFloatingPanel) BOOL floatingPanel;
@end
