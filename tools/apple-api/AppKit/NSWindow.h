#pragma once

#include <AppKit/NSColor.h>
#include <AppKit/NSResponder.h>

// https://developer.apple.com/documentation/appkit/nswindowlevel
typedef NSInteger NSWindowLevel;
// https://developer.apple.com/documentation/appkit/nsfloatingwindowlevel
static const NSWindowLevel NSFloatingWindowLevel = 3;
// https://developer.apple.com/documentation/appkit/nswindow/level/status
static const NSWindowLevel NSStatusWindowLevel = 25;

// https://developer.apple.com/documentation/appkit/nswindow/stylemask
typedef NSUInteger NSWindowStyleMask;
enum : NSWindowStyleMask {
    // https://developer.apple.com/documentation/appkit/nswindow/stylemask/1644652-nonactivatingpanel
    NSWindowStyleMaskNonactivatingPanel = 1 << 7,
    // https://developer.apple.com/documentation/appkit/nswindow/stylemask/1644646-fullsizecontentview
    NSWindowStyleMaskFullSizeContentView = 1 << 15,
};

// https://developer.apple.com/documentation/appkit/nswindow/collectionbehavior
typedef NSUInteger NSWindowCollectionBehavior;
enum : NSWindowCollectionBehavior {
    // https://developer.apple.com/documentation/appkit/nswindow/collectionbehavior/1419174-canjoinallspaces
    NSWindowCollectionBehaviorCanJoinAllSpaces = 1 << 0,
    // https://developer.apple.com/documentation/appkit/nswindow/collectionbehavior/1419547-transient
    NSWindowCollectionBehaviorTransient = 1 << 3,
    // https://developer.apple.com/documentation/appkit/nswindow/collectionbehavior/1419523-fullscreenauxiliary
    NSWindowCollectionBehaviorFullScreenAuxiliary = 1 << 8,
};

// https://developer.apple.com/documentation/appkit/nswindow/animationbehavior
enum NSWindowAnimationBehavior : NSInteger {
    // https://developer.apple.com/documentation/appkit/nswindow/animationbehavior/none
    NSWindowAnimationBehaviorNone = 2,
};

// https://developer.apple.com/documentation/appkit/nswindow/titlevisibility
enum NSWindowTitleVisibility : NSInteger {
    // https://developer.apple.com/documentation/appkit/nswindow/titlevisibility/hidden
    NSWindowTitleHidden = 1,
};

// https://developer.apple.com/documentation/appkit/nstitlebarseparatorstyle
enum NSTitlebarSeparatorStyle : NSInteger {
    // https://developer.apple.com/documentation/appkit/nstitlebarseparatorstyle/none
    NSTitlebarSeparatorStyleNone = 1,
};

// https://developer.apple.com/documentation/appkit/nswindow/toolbarstyle-swift.enum
enum NSWindowToolbarStyle : NSInteger {
    // https://developer.apple.com/documentation/appkit/nswindow/toolbarstyle-swift.enum/unified
    NSWindowToolbarStyleUnified = 3,
};

// https://developer.apple.com/documentation/appkit/nstoolbar
@class NSToolbar;

// https://developer.apple.com/documentation/appkit/nswindow
@interface NSWindow : NSResponder
// https://developer.apple.com/documentation/appkit/nswindow/1419078-stylemask
@property NSWindowStyleMask styleMask;
// https://developer.apple.com/documentation/appkit/nswindow/1419511-level
@property NSWindowLevel level;
// https://developer.apple.com/documentation/appkit/nswindow/1419471-collectionbehavior
@property NSWindowCollectionBehavior collectionBehavior;
// https://developer.apple.com/documentation/appkit/nswindow/1419777-hidesondeactivate
@property BOOL hidesOnDeactivate;
// https://developer.apple.com/documentation/appkit/nswindow/1419763-animationbehavior
@property NSWindowAnimationBehavior animationBehavior;
// https://developer.apple.com/documentation/appkit/nswindow/1419234-hasshadow
@property BOOL hasShadow;
// https://developer.apple.com/documentation/appkit/nswindow/1419086-opaque
@property(getter=isOpaque) BOOL opaque;
// https://developer.apple.com/documentation/appkit/nswindow/1419751-backgroundcolor
@property(copy) NSColor* backgroundColor;
// https://developer.apple.com/documentation/appkit/nswindow/1419208-makekeyandorderfront
- (void)makeKeyAndOrderFront:(id)sender;
// https://developer.apple.com/documentation/appkit/nswindow/1419635-titlevisibility
@property NSWindowTitleVisibility titleVisibility;
// https://developer.apple.com/documentation/appkit/nswindow/1419167-titlebarappearstransparent
@property BOOL titlebarAppearsTransparent;
// https://developer.apple.com/documentation/appkit/nswindow/3622489-titlebarseparatorstyle
@property NSTitlebarSeparatorStyle titlebarSeparatorStyle;
// https://developer.apple.com/documentation/appkit/nswindow/1419731-toolbar
@property(strong) NSToolbar* toolbar;
// https://developer.apple.com/documentation/appkit/nswindow/3608199-toolbarstyle
@property NSWindowToolbarStyle toolbarStyle;
// https://developer.apple.com/documentation/appkit/nswindow/1419072-movablebywindowbackground
@property(getter=isMovableByWindowBackground) BOOL movableByWindowBackground;
@end
