#pragma once
// AppKit: https://developer.apple.com/documentation/appkit

#include <Foundation/Foundation.h>
#include <AppKit/NSSound.h>
#include <AppKit/NSPasteboard.h>
#include <AppKit/NSPasteboardItem.h>
#include <AppKit/NSEvent.h>
