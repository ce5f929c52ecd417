#pragma once

#include <Foundation/NSObject.h>

extern "C" {
// https://developer.apple.com/documentation/foundation/1395275-nslog
void NSLog(NSString* format, ...) __attribute__((format(__NSString__, 1, 2)));
}
