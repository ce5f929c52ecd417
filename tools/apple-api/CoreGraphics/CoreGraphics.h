#pragma once
// Core Graphics: https://developer.apple.com/documentation/coregraphics

#include <CoreFoundation/CoreFoundation.h>
#include <CoreGraphics/CGEvent.h>
