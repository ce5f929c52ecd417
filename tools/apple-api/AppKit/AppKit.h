#pragma once
// AppKit: https://developer.apple.com/documentation/appkit

#include <Foundation/Foundation.h>
#include <AppKit/NSSound.h>
#include <AppKit/NSResponder.h>
#include <AppKit/NSApplication.h>
#include <AppKit/NSColor.h>
#include <AppKit/NSView.h>
#include <AppKit/NSWindow.h>
#include <AppKit/NSPanel.h>
#include <AppKit/NSWorkspace.h>
