#pragma once
// Core Foundation: https://developer.apple.com/documentation/corefoundation

#include <stdint.h>

// https://developer.apple.com/documentation/corefoundation/cfindex
typedef long CFIndex;
// https://developer.apple.com/documentation/corefoundation/cftyperef
typedef const void* CFTypeRef;
// https://developer.apple.com/documentation/corefoundation/cftypeid
typedef unsigned long CFTypeID;
// https://developer.apple.com/documentation/corefoundation/cfstring
typedef const struct __CFString* CFStringRef;
// https://developer.apple.com/documentation/corefoundation/cfarray
typedef const struct __CFArray* CFArrayRef;
// https://developer.apple.com/documentation/corefoundation/cfdictionary
typedef const struct __CFDictionary* CFDictionaryRef;
// https://developer.apple.com/documentation/corefoundation/cfboolean
typedef const struct __CFBoolean* CFBooleanRef;
// https://developer.apple.com/documentation/corefoundation/cfnumber
typedef const struct __CFNumber* CFNumberRef;
// https://developer.apple.com/documentation/corefoundation/cfrunloop
typedef struct __CFRunLoop* CFRunLoopRef;
// https://developer.apple.com/documentation/corefoundation/cfrunloopsource
typedef struct __CFRunLoopSource* CFRunLoopSourceRef;
// https://developer.apple.com/documentation/corefoundation/cfallocator
typedef const struct __CFAllocator* CFAllocatorRef;
// https://developer.apple.com/documentation/corefoundation/boolean
typedef unsigned char Boolean;
// https://developer.apple.com/documentation/corefoundation/cfnumbertype
typedef CFIndex CFNumberType;
// https://developer.apple.com/documentation/corefoundation/cfnumbertype/doubletype
enum : CFNumberType { kCFNumberDoubleType = 13 };

extern "C" {
// https://developer.apple.com/documentation/corefoundation/1521153-cfrelease
void CFRelease(CFTypeRef object);
// https://developer.apple.com/documentation/corefoundation/1521269-cfretain
CFTypeRef CFRetain(CFTypeRef object);
// https://developer.apple.com/documentation/corefoundation/1521218-cfgettypeid
CFTypeID CFGetTypeID(CFTypeRef object);
// https://developer.apple.com/documentation/corefoundation/1542853-cfstringgettypeid
CFTypeID CFStringGetTypeID(void);
// https://developer.apple.com/documentation/corefoundation/1388741-cfarraygettypeid
CFTypeID CFArrayGetTypeID(void);
// https://developer.apple.com/documentation/corefoundation/1541696-cfbooleangettypeid
CFTypeID CFBooleanGetTypeID(void);
// https://developer.apple.com/documentation/corefoundation/1542730-cfnumbergettypeid
CFTypeID CFNumberGetTypeID(void);
// https://developer.apple.com/documentation/corefoundation/1388772-cfarraygetcount
CFIndex CFArrayGetCount(CFArrayRef array);
// https://developer.apple.com/documentation/corefoundation/1388767-cfarraygetvalueatindex
const void* CFArrayGetValueAtIndex(CFArrayRef array, CFIndex index);
// https://developer.apple.com/documentation/corefoundation/1541889-cfbooleangetvalue
unsigned char CFBooleanGetValue(CFBooleanRef boolean);
// https://developer.apple.com/documentation/corefoundation/kcfbooleantrue
extern const CFBooleanRef kCFBooleanTrue;
// https://developer.apple.com/documentation/corefoundation/kcfbooleanfalse
extern const CFBooleanRef kCFBooleanFalse;
// https://developer.apple.com/documentation/corefoundation/kcfallocatordefault
extern const CFAllocatorRef kCFAllocatorDefault;
// https://developer.apple.com/documentation/corefoundation/1542503-cfrunloopgetmain
CFRunLoopRef CFRunLoopGetMain(void);
// https://developer.apple.com/documentation/corefoundation/kcfrunloopcommonmodes
extern const CFStringRef kCFRunLoopCommonModes;
// https://developer.apple.com/documentation/corefoundation/cfequal(_:_:)
Boolean CFEqual(CFTypeRef first, CFTypeRef second);
// https://developer.apple.com/documentation/corefoundation/cfnumbergetvalue(_:_:_:)
Boolean CFNumberGetValue(CFNumberRef number, CFNumberType theType, void* valuePtr);
}

// https://developer.apple.com/documentation/corefoundation/cfstr
#define CFSTR(cStr) ((CFStringRef)__builtin___CFStringMakeConstantString("" cStr ""))

#if defined(__OBJC__)
// https://developer.apple.com/documentation/foundation/1587932-cfbridgingrelease
#define CFBridgingRelease(object) ((__bridge_transfer id)(CFTypeRef)(object))
// https://developer.apple.com/documentation/foundation/1587937-cfbridgingretain
#define CFBridgingRetain(object) ((__bridge_retained CFTypeRef)(object))
#endif
#include <CoreFoundation/CFData.h>
#include <CoreFoundation/CFNotificationCenter.h>
