#pragma once

#include <CoreGraphics/CGEventTypes.h>

extern "C" {
// https://developer.apple.com/documentation/coregraphics/cgeventsource/init(stateid:)
CGEventSourceRef CGEventSourceCreate(CGEventSourceStateID stateID);
// https://developer.apple.com/documentation/coregraphics/cgeventsource/flagsstate(_:)
CGEventFlags CGEventSourceFlagsState(CGEventSourceStateID stateID);
}
