#pragma once

#include <stdint.h>

// https://developer.apple.com/documentation/coregraphics/cgerror
typedef int32_t CGError;
enum : CGError {
    // https://developer.apple.com/documentation/coregraphics/cgerror/success
    kCGErrorSuccess = 0,
    // https://developer.apple.com/documentation/coregraphics/cgerror/failure
    kCGErrorFailure = 1000,
};
