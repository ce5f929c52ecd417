#pragma once

#include <stdint.h>

// https://developer.apple.com/documentation/coregraphics/cgkeycode
typedef uint16_t CGKeyCode;
