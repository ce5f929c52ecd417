#pragma once

#include <Foundation/Foundation.h>

extern "C" {
// https://developer.apple.com/documentation/appkit/1473562-nsbeep
void NSBeep(void);
}
