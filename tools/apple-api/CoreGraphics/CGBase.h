#pragma once

// https://developer.apple.com/documentation/corefoundation/cgfloat
typedef double CGFloat;
