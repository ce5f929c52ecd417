#include "platform/mac/MacDesktopWindows.h"

#include "platform/mac/MacAXValue.h"

#include <AppKit/AppKit.h>
#include <ApplicationServices/ApplicationServices.h>
#include <CoreGraphics/CoreGraphics.h>
#include <cmath>
#include <unordered_map>

// WORKAROUND: no public call tells which window-server window an accessibility element stands for; this
// private one does, and answers kAXErrorSuccess when it knows.
extern "C" AXError _AXUIElementGetWindow(AXUIElementRef element, CGWindowID* window);

namespace {

std::optional<CGWindowID> windowNumber(AXUIElementRef element)
{
    CGWindowID window = kCGNullWindowID;
    if (_AXUIElementGetWindow(element, &window) != kAXErrorSuccess || window == kCGNullWindowID) {
        return std::nullopt;
    }
    return window;
}

std::optional<bool> boolAttribute(AXUIElementRef element, CFStringRef name)
{
    const MacCFRef<CFTypeRef> value = copyAttributeValue(element, name);
    if (!value || CFGetTypeID(value.get()) != CFBooleanGetTypeID()) {
        return std::nullopt;
    }
    return CFBooleanGetValue(static_cast<CFBooleanRef>(value.get())) != 0;
}

QRect desktopRect(CGRect rect)
{
    return QRect(int(std::lround(rect.origin.x)), int(std::lround(rect.origin.y)),
                 int(std::lround(rect.size.width)), int(std::lround(rect.size.height)));
}

// Cocoa's screen rectangles grow upwards from the bottom of the primary screen.
QRect fromCocoa(NSRect rect, CGFloat primaryHeight)
{
    return desktopRect(CGRectMake(rect.origin.x, primaryHeight - rect.origin.y - rect.size.height,
                                  rect.size.width, rect.size.height));
}

std::optional<qint32> ownerOf(CGWindowID window)
{
    NSArray* list = CFBridgingRelease(CGWindowListCopyWindowInfo(kCGWindowListOptionIncludingWindow, window));
    if (list.count == 0) {
        return std::nullopt;
    }
    NSDictionary* info = list[0];
    id owner = info[(__bridge NSString*)kCGWindowOwnerPID];
    return [owner isKindOfClass:[NSNumber class]] ? std::optional<qint32>([owner intValue]) : std::nullopt;
}

} // namespace

struct MacDesktopWindows::Elements {
    struct Known {
        qint32 owner = 0;
        MacCFRef<AXUIElementRef> element;
    };
    std::unordered_map<WindowId, Known> byWindow;

    // Keeps the element of a window, retained, when the window server knows its number.
    std::optional<CGWindowID> remember(AXUIElementRef element, qint32 owner)
    {
        const std::optional<CGWindowID> window = windowNumber(element);
        if (window) {
            CFRetain(element);
            byWindow.insert_or_assign(*window, Known{owner, MacCFRef<AXUIElementRef>(element)});
        }
        return window;
    }

    // Drops the windows of a process before they are listed afresh, so closed ones do not pile up.
    void forget(qint32 owner)
    {
        std::erase_if(byWindow, [owner](const auto& entry) { return entry.second.owner == owner; });
    }

    // The element of a window seen before, or else of one of its owner's windows now; null when unknown.
    AXUIElementRef find(MacDesktopWindows& windows, WindowId window)
    {
        auto found = byWindow.find(window);
        if (found == byWindow.end()) {
            if (const std::optional<qint32> owner = ownerOf(CGWindowID(window))) {
                windows.windowsOfProcess(*owner);
                found = byWindow.find(window);
            }
        }
        return found == byWindow.end() ? nullptr : found->second.element.get();
    }
};

MacDesktopWindows::MacDesktopWindows() : m_elements(std::make_unique<Elements>()) {}

MacDesktopWindows::~MacDesktopWindows() = default;

DesktopWindows::WindowId MacDesktopWindows::focusedWindow()
{
    NSRunningApplication* front = [NSWorkspace sharedWorkspace].frontmostApplication;
    if (front == nil) {
        return 0;
    }
    const MacCFRef<AXUIElementRef> application(AXUIElementCreateApplication(front.processIdentifier));
    const MacCFRef<CFTypeRef> focused = copyAttributeValue(application.get(), kAXFocusedWindowAttribute);
    if (!isAXElement(focused.get())) {
        return 0;
    }
    return m_elements->remember(static_cast<AXUIElementRef>(focused.get()), front.processIdentifier)
        .value_or(kCGNullWindowID);
}

std::optional<DesktopWindows::WindowState> MacDesktopWindows::state(WindowId window)
{
    AXUIElementRef element = m_elements->find(*this, window);
    if (element == nullptr) {
        return std::nullopt;
    }
    const MacCFRef<CFTypeRef> subrole = copyAttributeValue(element, kAXSubroleAttribute);
    if (!subrole && !copyAttributeValue(element, kAXRoleAttribute)) {
        return std::nullopt;
    }
    WindowState state;
    state.isStandard = subrole && CFGetTypeID(subrole.get()) == CFStringGetTypeID() &&
                       CFEqual(subrole.get(), kAXStandardWindowSubrole);
    state.isMinimized = boolAttribute(element, kAXMinimizedAttribute).value_or(false);
    state.isFullScreen = boolAttribute(element, CFSTR("AXFullScreen")).value_or(false);
    return state;
}

std::optional<QRect> MacDesktopWindows::frame(WindowId window)
{
    AXUIElementRef element = m_elements->find(*this, window);
    if (element == nullptr) {
        return std::nullopt;
    }
    const auto position = axValueContents<CGPoint>(copyAttributeValue(element, kAXPositionAttribute).get(),
                                                   kAXValueTypeCGPoint);
    const auto size =
        axValueContents<CGSize>(copyAttributeValue(element, kAXSizeAttribute).get(), kAXValueTypeCGSize);
    if (!position || !size) {
        return std::nullopt;
    }
    return desktopRect(CGRect{*position, *size});
}

QList<DesktopWindows::Screen> MacDesktopWindows::screens()
{
    QList<Screen> result;
    NSArray<NSScreen*>* screens = [NSScreen screens];
    if (screens.count == 0) {
        return result;
    }
    const CGFloat primaryHeight = screens[0].frame.size.height;
    for (NSUInteger index = 0; index < screens.count; ++index) {
        result.append(Screen{fromCocoa(screens[index].frame, primaryHeight),
                             fromCocoa(screens[index].visibleFrame, primaryHeight)});
    }
    return result;
}

QList<DesktopWindows::StackedWindow> MacDesktopWindows::windowsFrontToBack()
{
    QList<StackedWindow> result;
    NSArray* list = CFBridgingRelease(CGWindowListCopyWindowInfo(
        kCGWindowListOptionOnScreenOnly | kCGWindowListExcludeDesktopElements, kCGNullWindowID));
    for (NSUInteger index = 0; index < list.count; ++index) {
        NSDictionary* info = list[index];
        NSNumber* number = info[(__bridge NSString*)kCGWindowNumber];
        NSNumber* owner = info[(__bridge NSString*)kCGWindowOwnerPID];
        NSNumber* layer = info[(__bridge NSString*)kCGWindowLayer];
        NSNumber* alpha = info[(__bridge NSString*)kCGWindowAlpha];
        NSDictionary* bounds = info[(__bridge NSString*)kCGWindowBounds];
        StackedWindow window;
        window.window = number.unsignedIntValue;
        if (owner != nil) {
            window.ownerProcess = owner.intValue;
        }
        window.layer = layer.intValue;
        if (alpha != nil) {
            window.alpha = alpha.doubleValue;
        }
        CGRect rect = CGRectZero;
        if (bounds != nil &&
            CGRectMakeWithDictionaryRepresentation((__bridge CFDictionaryRef)bounds, &rect)) {
            window.bounds = desktopRect(rect);
        }
        result.append(window);
    }
    return result;
}

QList<DesktopWindows::WindowId> MacDesktopWindows::windowsOfProcess(qint32 processIdentifier)
{
    QList<WindowId> result;
    m_elements->forget(processIdentifier);
    const MacCFRef<AXUIElementRef> application(AXUIElementCreateApplication(processIdentifier));
    const MacCFRef<CFTypeRef> windows = copyAttributeValue(application.get(), kAXWindowsAttribute);
    if (!windows || CFGetTypeID(windows.get()) != CFArrayGetTypeID()) {
        return result;
    }
    const auto array = static_cast<CFArrayRef>(windows.get());
    for (CFIndex index = 0; index < CFArrayGetCount(array); ++index) {
        const void* value = CFArrayGetValueAtIndex(array, index);
        if (!isAXElement(value)) {
            continue;
        }
        if (const std::optional<CGWindowID> window =
                m_elements->remember(static_cast<AXUIElementRef>(value), processIdentifier)) {
            result.append(*window);
        }
    }
    return result;
}

void MacDesktopWindows::setPosition(WindowId window, QPoint topLeft)
{
    if (AXUIElementRef element = m_elements->find(*this, window)) {
        const CGPoint point = CGPointMake(topLeft.x(), topLeft.y());
        const MacCFRef<AXValueRef> value(AXValueCreate(kAXValueTypeCGPoint, &point));
        AXUIElementSetAttributeValue(element, kAXPositionAttribute, value.get());
    }
}

void MacDesktopWindows::setSize(WindowId window, QSize size)
{
    if (AXUIElementRef element = m_elements->find(*this, window)) {
        const CGSize extent = CGSizeMake(size.width(), size.height());
        const MacCFRef<AXValueRef> value(AXValueCreate(kAXValueTypeCGSize, &extent));
        AXUIElementSetAttributeValue(element, kAXSizeAttribute, value.get());
    }
}

QCoro::Task<std::optional<QRect>> MacDesktopWindows::settledFrame(WindowId window, QRect /*expected*/)
{
    co_return frame(window);
}
