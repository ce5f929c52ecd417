#pragma once
// The basic Mac types, from the SDK's usr/include: https://developer.apple.com/documentation/kernel/mactypes_h

#include <stdint.h>

// https://developer.apple.com/documentation/kernel/uint8
typedef unsigned char UInt8;
// https://developer.apple.com/documentation/kernel/uint16
typedef unsigned short UInt16;
// https://developer.apple.com/documentation/kernel/uint32
typedef unsigned int UInt32;
// https://developer.apple.com/documentation/kernel/sint32
typedef signed int SInt32;
// https://developer.apple.com/documentation/kernel/boolean
typedef unsigned char Boolean;
// https://developer.apple.com/documentation/kernel/osstatus
typedef SInt32 OSStatus;
// https://developer.apple.com/documentation/kernel/fourcharcode
typedef UInt32 FourCharCode;
// https://developer.apple.com/documentation/kernel/ostype
typedef FourCharCode OSType;
// https://developer.apple.com/documentation/kernel/optionbits
typedef UInt32 OptionBits;
// https://developer.apple.com/documentation/kernel/itemcount
typedef unsigned long ItemCount;
// https://developer.apple.com/documentation/kernel/bytecount
typedef unsigned long ByteCount;
// https://developer.apple.com/documentation/kernel/unichar
typedef UInt16 UniChar;
// https://developer.apple.com/documentation/kernel/unicharcount
typedef unsigned long UniCharCount;

// https://developer.apple.com/documentation/kernel/noerr
enum { noErr = 0 };
