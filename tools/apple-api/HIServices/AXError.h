#pragma once

#include <stdint.h>

// https://developer.apple.com/documentation/applicationservices/axerror
typedef int32_t AXError;
enum : AXError {
    // https://developer.apple.com/documentation/applicationservices/axerror/success
    kAXErrorSuccess = 0,
};
