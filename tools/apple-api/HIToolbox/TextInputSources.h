#pragma once
// Text Input Source Services:
// https://developer.apple.com/library/archive/documentation/TextFonts/Reference/TextInputSourcesReference/

#include <CoreFoundation/CoreFoundation.h>
#include <MacTypes.h>

// https://developer.apple.com/library/archive/documentation/TextFonts/Reference/TextInputSourcesReference/#//apple_ref/c/tdef/TISInputSourceRef
typedef struct __TISInputSource* TISInputSourceRef;

extern "C" {
// https://developer.apple.com/library/archive/documentation/TextFonts/Reference/TextInputSourcesReference/#//apple_ref/c/func/TISCreateInputSourceList
CFArrayRef TISCreateInputSourceList(CFDictionaryRef properties, Boolean includeAllInstalled);
// https://developer.apple.com/library/archive/documentation/TextFonts/Reference/TextInputSourcesReference/#//apple_ref/c/func/TISCopyCurrentKeyboardInputSource
TISInputSourceRef TISCopyCurrentKeyboardInputSource(void);
// https://developer.apple.com/library/archive/documentation/TextFonts/Reference/TextInputSourcesReference/#//apple_ref/c/func/TISSelectInputSource
OSStatus TISSelectInputSource(TISInputSourceRef inputSource);
// https://developer.apple.com/library/archive/documentation/TextFonts/Reference/TextInputSourcesReference/#//apple_ref/c/func/TISGetInputSourceProperty
void* TISGetInputSourceProperty(TISInputSourceRef inputSource, CFStringRef propertyKey);

// https://developer.apple.com/library/archive/documentation/TextFonts/Reference/TextInputSourcesReference/#//apple_ref/c/data/kTISPropertyInputSourceID
extern const CFStringRef kTISPropertyInputSourceID;
// https://developer.apple.com/library/archive/documentation/TextFonts/Reference/TextInputSourcesReference/#//apple_ref/c/data/kTISPropertyLocalizedName
extern const CFStringRef kTISPropertyLocalizedName;
// https://developer.apple.com/library/archive/documentation/TextFonts/Reference/TextInputSourcesReference/#//apple_ref/c/data/kTISPropertyInputSourceType
extern const CFStringRef kTISPropertyInputSourceType;
// https://developer.apple.com/library/archive/documentation/TextFonts/Reference/TextInputSourcesReference/#//apple_ref/c/data/kTISPropertyUnicodeKeyLayoutData
extern const CFStringRef kTISPropertyUnicodeKeyLayoutData;
// https://developer.apple.com/library/archive/documentation/TextFonts/Reference/TextInputSourcesReference/#//apple_ref/c/data/kTISTypeKeyboardLayout
extern const CFStringRef kTISTypeKeyboardLayout;
// https://developer.apple.com/library/archive/documentation/TextFonts/Reference/TextInputSourcesReference/#//apple_ref/c/data/kTISTypeKeyboardInputMode
extern const CFStringRef kTISTypeKeyboardInputMode;
// https://developer.apple.com/library/archive/documentation/TextFonts/Reference/TextInputSourcesReference/#//apple_ref/c/data/kTISNotifySelectedKeyboardInputSourceChanged
extern const CFStringRef kTISNotifySelectedKeyboardInputSourceChanged;
}
