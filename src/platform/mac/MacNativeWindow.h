#pragma once

// Included by the .mm files only: it speaks Objective-C.
#include <AppKit/AppKit.h>
#include <QtGlobal>

// The NSWindow behind what QWindow::winId() gives on macOS, the window's NSView; nil for none.
inline NSWindow* nativeWindowOf(quintptr nativeWindow)
{
    if (nativeWindow == 0) {
        return nil;
    }
    NSView* view = (__bridge NSView*)reinterpret_cast<void*>(nativeWindow);
    return view.window;
}
