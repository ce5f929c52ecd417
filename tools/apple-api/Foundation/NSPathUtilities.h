#pragma once

#include <Foundation/NSString.h>

extern "C" {
// https://developer.apple.com/documentation/foundation/1413045-nshomedirectory
NSString* NSHomeDirectory(void);
}
