#pragma once

#include <CoreFoundation/CoreFoundation.h>
#include <CoreGraphics/CGBase.h>

// https://developer.apple.com/documentation/corefoundation/cgpoint
struct CGPoint {
    CGFloat x;
    CGFloat y;
};
typedef struct CGPoint CGPoint;

// https://developer.apple.com/documentation/corefoundation/cgsize
struct CGSize {
    CGFloat width;
    CGFloat height;
};
typedef struct CGSize CGSize;

// https://developer.apple.com/documentation/corefoundation/cgrect
struct CGRect {
    CGPoint origin;
    CGSize size;
};
typedef struct CGRect CGRect;

extern "C" {
// https://developer.apple.com/documentation/coregraphics/cgrectzero
extern const CGRect CGRectZero;
// https://developer.apple.com/documentation/coregraphics/cgpointmake
CGPoint CGPointMake(CGFloat x, CGFloat y);
// https://developer.apple.com/documentation/coregraphics/cgsizemake
CGSize CGSizeMake(CGFloat width, CGFloat height);
// https://developer.apple.com/documentation/coregraphics/cgrectmake
CGRect CGRectMake(CGFloat x, CGFloat y, CGFloat width, CGFloat height);
// https://developer.apple.com/documentation/coregraphics/cgrectmakewithdictionaryrepresentation(_:_:)
bool CGRectMakeWithDictionaryRepresentation(CFDictionaryRef dict, CGRect* rect);
}
