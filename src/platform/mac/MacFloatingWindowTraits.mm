#include "platform/mac/MacFloatingWindowTraits.h"

#include "platform/mac/MacNativeWindow.h"

#include <QGuiApplication>
#include <QWindow>

namespace {

// The Qt window's own flag says whether it may take the focus; only an existing native window is asked,
// so no window is created here.
bool refusesFocus(quintptr nativeWindow)
{
    const QWindowList windows = QGuiApplication::allWindows();
    for (const QWindow* window : windows) {
        if (window->handle() != nullptr && window->winId() == WId(nativeWindow)) {
            return window->flags().testFlag(Qt::WindowDoesNotAcceptFocus);
        }
    }
    return false;
}

// Both kinds of floating window: present on every Space and beside full-screen apps, no shadow, clear and
// not opaque (the view draws the sheet).
void applySurface(NSWindow* window, NSWindowLevel level, bool nonActivating)
{
    if ([window isKindOfClass:[NSPanel class]]) {
        NSPanel* panel = (NSPanel*)window;
        panel.floatingPanel = YES;
        if (nonActivating) {
            panel.styleMask = panel.styleMask | NSWindowStyleMaskNonactivatingPanel;
        }
    }
    window.level = level;
    window.collectionBehavior = NSWindowCollectionBehaviorCanJoinAllSpaces |
                                NSWindowCollectionBehaviorTransient |
                                NSWindowCollectionBehaviorFullScreenAuxiliary;
    // WORKAROUND: Qt makes its tool windows hide whenever the program is not active, and a panel opened over
    // another application by a hotkey is exactly that case.
    window.hidesOnDeactivate = NO;
    window.animationBehavior = NSWindowAnimationBehaviorNone;
    window.hasShadow = NO;
    window.opaque = NO;
    window.backgroundColor = [NSColor clearColor];
}

} // namespace

void MacFloatingWindowTraits::applyFloatingTraits(quintptr nativeWindow)
{
    NSWindow* window = nativeWindowOf(nativeWindow);
    if (window == nil) {
        return;
    }
    applySurface(window, NSFloatingWindowLevel, refusesFocus(nativeWindow));
}

void MacFloatingWindowTraits::applyOverlayTraits(quintptr nativeWindow)
{
    NSWindow* window = nativeWindowOf(nativeWindow);
    if (window == nil) {
        return;
    }
    applySurface(window, NSStatusWindowLevel, true);
}

void MacFloatingWindowTraits::activate(quintptr nativeWindow)
{
    NSWindow* window = nativeWindowOf(nativeWindow);
    if (window == nil) {
        return;
    }
    [NSApp activateIgnoringOtherApps:YES];
    [window makeKeyAndOrderFront:nil];
}
