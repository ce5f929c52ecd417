#pragma once

#include <CoreGraphics/CGBase.h>

// https://developer.apple.com/documentation/corefoundation/cgpoint
struct CGPoint {
    CGFloat x;
    CGFloat y;
};
typedef struct CGPoint CGPoint;
