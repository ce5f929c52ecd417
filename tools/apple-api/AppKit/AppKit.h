#pragma once
// AppKit: https://developer.apple.com/documentation/appkit

#include <Foundation/Foundation.h>
#include <AppKit/NSSound.h>
#include <AppKit/NSPasteboard.h>
#include <AppKit/NSPasteboardItem.h>
#include <AppKit/NSEvent.h>
#include <AppKit/NSRunningApplication.h>
#include <AppKit/NSWorkspace.h>
#include <AppKit/NSApplication.h>
#include <AppKit/NSScreen.h>
#include <AppKit/NSResponder.h>
#include <AppKit/NSColor.h>
#include <AppKit/NSView.h>
#include <AppKit/NSWindow.h>
#include <AppKit/NSPanel.h>
