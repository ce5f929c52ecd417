#include "platform/mac/MacApplicationPresence.h"

#include "platform/mac/MacNativeWindow.h"

void MacApplicationPresence::setRegular(bool regular)
{
    [NSApp setActivationPolicy:regular ? NSApplicationActivationPolicyRegular
                                       : NSApplicationActivationPolicyAccessory];
}

void MacApplicationPresence::applyMainWindowTraits(quintptr nativeWindow)
{
    NSWindow* window = nativeWindowOf(nativeWindow);
    if (window == nil) {
        return;
    }
    window.titleVisibility = NSWindowTitleHidden;
    window.titlebarAppearsTransparent = YES;
    window.titlebarSeparatorStyle = NSTitlebarSeparatorStyleNone;
    window.styleMask = window.styleMask | NSWindowStyleMaskFullSizeContentView;
    window.toolbar = nil;
    window.toolbarStyle = NSWindowToolbarStyleUnified;
    window.backgroundColor = [NSColor clearColor];
    window.opaque = NO;
    window.movableByWindowBackground = NO;
}
