#pragma once
// Core Graphics: https://developer.apple.com/documentation/coregraphics

#include <CoreFoundation/CoreFoundation.h>
#include <CoreGraphics/CGBase.h>
#include <CoreGraphics/CGGeometry.h>
#include <CoreGraphics/CGEvent.h>
