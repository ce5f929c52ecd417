#pragma once

// Included by the .mm files only: the accessibility reads and value wrappers the adapters share.
#include "platform/mac/MacCFRef.h"

#include <ApplicationServices/ApplicationServices.h>
#include <optional>

// The attribute's value, owned; empty when the element does not have it or the call fails.
inline MacCFRef<CFTypeRef> copyAttributeValue(AXUIElementRef element, CFStringRef name)
{
    CFTypeRef value = nullptr;
    if (AXUIElementCopyAttributeValue(element, name, &value) != kAXErrorSuccess) {
        return {};
    }
    return MacCFRef<CFTypeRef>(value);
}

// The contents of an accessibility value of that type; nullopt for anything else.
template <typename T> std::optional<T> axValueContents(CFTypeRef value, AXValueType type)
{
    T contents{};
    if (value == nullptr || CFGetTypeID(value) != AXValueGetTypeID() ||
        AXValueGetType(static_cast<AXValueRef>(value)) != type ||
        !AXValueGetValue(static_cast<AXValueRef>(value), type, &contents)) {
        return std::nullopt;
    }
    return contents;
}

// Whether the value is an element of an accessibility tree.
inline bool isAXElement(CFTypeRef value)
{
    return value != nullptr && CFGetTypeID(value) == AXUIElementGetTypeID();
}
