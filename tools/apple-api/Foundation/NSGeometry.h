#pragma once
// https://developer.apple.com/documentation/foundation/nsgeometry_h

#include <CoreGraphics/CGGeometry.h>

// https://developer.apple.com/documentation/foundation/nsrect
typedef CGRect NSRect;
