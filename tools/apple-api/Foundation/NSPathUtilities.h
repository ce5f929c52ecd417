#pragma once

#include <Foundation/NSString.h>

extern "C" {
// https://developer.apple.com/documentation/foundation/nshomedirectory()
NSString* NSHomeDirectory(void);
}
