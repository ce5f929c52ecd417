#pragma once

#include <MacTypes.h>

// https://developer.apple.com/documentation/coreservices/uckeyboardlayout
struct UCKeyboardLayout;
typedef struct UCKeyboardLayout UCKeyboardLayout;

// https://developer.apple.com/documentation/coreservices/1390584-uckeytranslate (keyAction)
enum { kUCKeyActionDown = 0 };

extern "C" {
// https://developer.apple.com/documentation/coreservices/1390584-uckeytranslate
OSStatus UCKeyTranslate(const UCKeyboardLayout* keyLayoutPtr, UInt16 virtualKeyCode, UInt16 keyAction,
                        UInt32 modifierKeyState, UInt32 keyboardType, OptionBits keyTranslateOptions,
                        UInt32* deadKeyState, UniCharCount maxStringLength, UniCharCount* actualStringLength,
                        UniChar unicodeString[]);
}
