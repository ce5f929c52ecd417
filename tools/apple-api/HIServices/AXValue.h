#pragma once

#include <CoreFoundation/CoreFoundation.h>
#include <stdint.h>

// https://developer.apple.com/documentation/applicationservices/axvalue
typedef const struct __AXValue* AXValueRef;

// https://developer.apple.com/documentation/applicationservices/axvaluetype
typedef uint32_t AXValueType;
enum : AXValueType {
    // https://developer.apple.com/documentation/applicationservices/axvaluetype/kaxvaluetypecgpoint
    kAXValueTypeCGPoint = 1,
    // https://developer.apple.com/documentation/applicationservices/axvaluetype/kaxvaluetypecgsize
    kAXValueTypeCGSize = 2,
};

extern "C" {
// https://developer.apple.com/documentation/applicationservices/1462087-axvaluegettypeid
CFTypeID AXValueGetTypeID(void);
// https://developer.apple.com/documentation/applicationservices/1462088-axvaluecreate
AXValueRef AXValueCreate(AXValueType theType, const void* valuePtr);
// https://developer.apple.com/documentation/applicationservices/1462090-axvaluegettype
AXValueType AXValueGetType(AXValueRef value);
// https://developer.apple.com/documentation/applicationservices/1462092-axvaluegetvalue
Boolean AXValueGetValue(AXValueRef value, AXValueType theType, void* valuePtr);
}
