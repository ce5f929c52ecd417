#pragma once

#include <CoreFoundation/CoreFoundation.h>
#include <stdint.h>

// https://developer.apple.com/documentation/applicationservices/axvalue
typedef const struct __AXValue* AXValueRef;

// https://developer.apple.com/documentation/applicationservices/axvaluetype
typedef uint32_t AXValueType;
enum : AXValueType {
    // https://developer.apple.com/documentation/applicationservices/axvaluetype/cgpoint
    kAXValueTypeCGPoint = 1,
    // https://developer.apple.com/documentation/applicationservices/axvaluetype/cgsize
    kAXValueTypeCGSize = 2,
};

extern "C" {
// https://developer.apple.com/documentation/applicationservices/axvaluegettypeid()
CFTypeID AXValueGetTypeID(void);
// https://developer.apple.com/documentation/applicationservices/axvaluecreate(_:_:)
AXValueRef AXValueCreate(AXValueType theType, const void* valuePtr);
// https://developer.apple.com/documentation/applicationservices/axvaluegettype(_:)
AXValueType AXValueGetType(AXValueRef value);
// https://developer.apple.com/documentation/applicationservices/axvaluegetvalue(_:_:_:)
Boolean AXValueGetValue(AXValueRef value, AXValueType theType, void* valuePtr);
}
