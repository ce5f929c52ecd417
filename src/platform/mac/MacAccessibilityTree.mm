#include "platform/mac/MacAccessibilityTree.h"

#include "platform/mac/MacAXValue.h"
#include "platform/mac/MacStringBridge.h"

#include <AppKit/AppKit.h>
#include <ApplicationServices/ApplicationServices.h>
#include <vector>

namespace {

using ElementRef = MacCFRef<AXUIElementRef>;

// Adopts an owned element reference.
AccessibilityElement adopt(AXUIElementRef owned)
{
    return owned == nullptr ? AccessibilityElement()
                            : AccessibilityElement(std::make_shared<ElementRef>(owned));
}

AccessibilityElement retain(AXUIElementRef element)
{
    CFRetain(element);
    return adopt(element);
}

AXUIElementRef ref(const AccessibilityElement& element)
{
    return element.isNull() ? nullptr : element.handle<ElementRef>()->get();
}

QList<AccessibilityElement> elementsOf(CFTypeRef value)
{
    QList<AccessibilityElement> result;
    if (value == nullptr || CFGetTypeID(value) != CFArrayGetTypeID()) {
        return result;
    }
    const auto array = static_cast<CFArrayRef>(value);
    for (CFIndex index = 0; index < CFArrayGetCount(array); ++index) {
        const void* item = CFArrayGetValueAtIndex(array, index);
        if (isAXElement(item)) {
            result.append(retain(static_cast<AXUIElementRef>(item)));
        }
    }
    return result;
}

QStringList stringsOf(CFArrayRef owned)
{
    NSArray* array = CFBridgingRelease(owned);
    QStringList result;
    for (NSUInteger index = 0; index < array.count; ++index) {
        id item = array[index];
        if ([item isKindOfClass:[NSString class]]) {
            result.append(toQString(item));
        }
    }
    return result;
}

std::optional<AccessibilityValue> fromCF(CFTypeRef value)
{
    const CFTypeID type = CFGetTypeID(value);
    if (type == CFStringGetTypeID()) {
        return toQString((__bridge NSString*)value);
    }
    if (type == CFBooleanGetTypeID()) {
        return CFBooleanGetValue(static_cast<CFBooleanRef>(value)) != 0;
    }
    if (type == CFNumberGetTypeID()) {
        double number = 0;
        CFNumberGetValue(static_cast<CFNumberRef>(value), kCFNumberDoubleType, &number);
        return number;
    }
    if (isAXElement(value)) {
        return retain(static_cast<AXUIElementRef>(value));
    }
    if (type == CFArrayGetTypeID()) {
        return elementsOf(value);
    }
    if (const auto point = axValueContents<CGPoint>(value, kAXValueTypeCGPoint)) {
        return QPointF(point->x, point->y);
    }
    if (const auto size = axValueContents<CGSize>(value, kAXValueTypeCGSize)) {
        return QSizeF(size->width, size->height);
    }
    return std::nullopt;
}

// The value as the API takes it, owned by ARC.
id toObject(const AccessibilityValue& value)
{
    if (const auto* text = std::get_if<QString>(&value)) {
        return toNSString(*text);
    }
    if (const auto* truth = std::get_if<bool>(&value)) {
        return (__bridge id)(*truth ? kCFBooleanTrue : kCFBooleanFalse);
    }
    if (const auto* number = std::get_if<double>(&value)) {
        return [NSNumber numberWithDouble:*number];
    }
    if (const auto* point = std::get_if<QPointF>(&value)) {
        const CGPoint contents = CGPointMake(point->x(), point->y());
        return CFBridgingRelease(AXValueCreate(kAXValueTypeCGPoint, &contents));
    }
    if (const auto* size = std::get_if<QSizeF>(&value)) {
        const CGSize contents = CGSizeMake(size->width(), size->height());
        return CFBridgingRelease(AXValueCreate(kAXValueTypeCGSize, &contents));
    }
    if (const auto* element = std::get_if<AccessibilityElement>(&value)) {
        return (__bridge id)ref(*element);
    }
    std::vector<id> items;
    for (const AccessibilityElement& element : std::get<QList<AccessibilityElement>>(value)) {
        if (!element.isNull()) {
            items.push_back((__bridge id)ref(element));
        }
    }
    return [NSArray arrayWithObjects:items.data() count:items.size()];
}

} // namespace

MacAccessibilityTree::MacAccessibilityTree(std::chrono::milliseconds callTimeout)
{
    // Set on the system-wide element, the timeout holds for every element that sets none of its own.
    const ElementRef systemWide(AXUIElementCreateSystemWide());
    AXUIElementSetMessagingTimeout(systemWide.get(), float(callTimeout.count()) / 1000.0F);
}

AccessibilityElement MacAccessibilityTree::applicationElement(qint32 processIdentifier)
{
    // The API makes an element for any number; only a running process has a tree behind it.
    if ([NSRunningApplication runningApplicationWithProcessIdentifier:processIdentifier] == nil) {
        return {};
    }
    return adopt(AXUIElementCreateApplication(processIdentifier));
}

std::optional<AccessibilityValue> MacAccessibilityTree::attribute(const AccessibilityElement& element,
                                                                  const QString& name)
{
    if (element.isNull()) {
        return std::nullopt;
    }
    const MacCFRef<CFTypeRef> value =
        copyAttributeValue(ref(element), (__bridge CFStringRef)toNSString(name));
    return value ? fromCF(value.get()) : std::nullopt;
}

QStringList MacAccessibilityTree::attributeNames(const AccessibilityElement& element)
{
    CFArrayRef names = nullptr;
    if (element.isNull() || AXUIElementCopyAttributeNames(ref(element), &names) != kAXErrorSuccess) {
        return {};
    }
    return stringsOf(names);
}

std::optional<bool> MacAccessibilityTree::isAttributeSettable(const AccessibilityElement& element,
                                                              const QString& name)
{
    Boolean settable = false;
    if (element.isNull() ||
        AXUIElementIsAttributeSettable(ref(element), (__bridge CFStringRef)toNSString(name), &settable) !=
            kAXErrorSuccess) {
        return std::nullopt;
    }
    return settable != 0;
}

bool MacAccessibilityTree::setAttribute(const AccessibilityElement& element, const QString& name,
                                        const AccessibilityValue& value)
{
    id object = toObject(value);
    return !element.isNull() && object != nil &&
           AXUIElementSetAttributeValue(ref(element), (__bridge CFStringRef)toNSString(name),
                                        (__bridge CFTypeRef)object) == kAXErrorSuccess;
}

QStringList MacAccessibilityTree::actionNames(const AccessibilityElement& element)
{
    CFArrayRef names = nullptr;
    if (element.isNull() || AXUIElementCopyActionNames(ref(element), &names) != kAXErrorSuccess) {
        return {};
    }
    return stringsOf(names);
}

bool MacAccessibilityTree::performAction(const AccessibilityElement& element, const QString& name)
{
    return !element.isNull() &&
           AXUIElementPerformAction(ref(element), (__bridge CFStringRef)toNSString(name)) == kAXErrorSuccess;
}

QList<AccessibilityElement> MacAccessibilityTree::searchTextFields(const AccessibilityElement& element,
                                                                   int limit)
{
    if (element.isNull() || limit <= 0) {
        return {};
    }
    NSDictionary* parameters = @{
        @"AXSearchKey" : @"AXTextFieldSearchKey",
        @"AXVisibleOnly" : @YES,
        @"AXResultsLimit" : @(limit),
    };
    CFTypeRef found = nullptr;
    if (AXUIElementCopyParameterizedAttributeValue(ref(element), CFSTR("AXUIElementsForSearchPredicate"),
                                                   (__bridge CFTypeRef)parameters,
                                                   &found) != kAXErrorSuccess) {
        return {};
    }
    const MacCFRef<CFTypeRef> results(found);
    return elementsOf(results.get());
}

bool MacAccessibilityTree::isSameElement(const AccessibilityElement& first,
                                         const AccessibilityElement& second)
{
    return !first.isNull() && !second.isNull() && CFEqual(ref(first), ref(second));
}
