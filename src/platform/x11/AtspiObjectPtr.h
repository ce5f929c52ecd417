#pragma once

#include "platform/AccessibilityElement.h"

#include <atspi/atspi.h>
#include <memory>

// Ownership of AT-SPI's GObjects: one reference, dropped with the pointer.
struct AtspiObjectUnref {
    void operator()(gpointer object) const
    {
        if (object != nullptr) {
            g_object_unref(object);
        }
    }
};
template <typename T> using AtspiObjectPtr = std::unique_ptr<T, AtspiObjectUnref>;

// Hands the reference the caller owns to an element; null gives a null element.
inline AccessibilityElement adoptAtspiObject(AtspiAccessible* object)
{
    if (object == nullptr) {
        return {};
    }
    return AccessibilityElement(std::shared_ptr<void>(object, AtspiObjectUnref{}));
}
