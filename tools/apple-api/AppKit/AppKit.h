#pragma once
// AppKit: https://developer.apple.com/documentation/appkit

#include <Foundation/Foundation.h>
#include <AppKit/NSSound.h>
