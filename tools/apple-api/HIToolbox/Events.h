#pragma once
// The Event Manager: https://developer.apple.com/library/archive/documentation/Carbon/Reference/Event_Manager/

#include <MacTypes.h>

// The modifier bits of a Carbon event; Carbon hotkeys take them, and key layouts take their high byte.
// https://developer.apple.com/library/archive/documentation/Carbon/Reference/Event_Manager/Reference/reference.html
enum {
    cmdKey = 1 << 8,
    shiftKey = 1 << 9,
    optionKey = 1 << 11,
    controlKey = 1 << 12,
};

extern "C" {
// https://developer.apple.com/library/archive/documentation/Carbon/Reference/Event_Manager/Reference/reference.html
UInt8 LMGetKbdType(void);
}
