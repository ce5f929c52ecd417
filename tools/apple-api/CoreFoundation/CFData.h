#pragma once

#include <CoreFoundation/CoreFoundation.h>

// https://developer.apple.com/documentation/corefoundation/cfdata
typedef const struct __CFData* CFDataRef;

extern "C" {
// https://developer.apple.com/documentation/corefoundation/cfdatagetbyteptr(_:)
const uint8_t* CFDataGetBytePtr(CFDataRef data);
}
