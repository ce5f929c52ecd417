#pragma once

#include <CoreFoundation/CoreFoundation.h>
#include <sys/types.h>

extern "C" {
// https://developer.apple.com/documentation/applicationservices/1460720-axisprocesstrusted
Boolean AXIsProcessTrusted(void);
// https://developer.apple.com/documentation/applicationservices/1459186-axisprocesstrustedwithoptions
Boolean AXIsProcessTrustedWithOptions(CFDictionaryRef options);
// https://developer.apple.com/documentation/applicationservices/kaxtrustedcheckoptionprompt
extern const CFStringRef kAXTrustedCheckOptionPrompt;
}
