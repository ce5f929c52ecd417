#pragma once

#include <CoreFoundation/CoreFoundation.h>
#include <HIServices/AXError.h>
#include <sys/types.h>

// https://developer.apple.com/documentation/applicationservices/axuielement
typedef const struct __AXUIElement* AXUIElementRef;

extern "C" {
// https://developer.apple.com/documentation/applicationservices/axisprocesstrusted()
Boolean AXIsProcessTrusted(void);
// https://developer.apple.com/documentation/applicationservices/axisprocesstrustedwithoptions(_:)
Boolean AXIsProcessTrustedWithOptions(CFDictionaryRef options);
// https://developer.apple.com/documentation/applicationservices/kaxtrustedcheckoptionprompt
extern const CFStringRef kAXTrustedCheckOptionPrompt;
// https://developer.apple.com/documentation/applicationservices/axuielementgettypeid()
CFTypeID AXUIElementGetTypeID(void);
// https://developer.apple.com/documentation/applicationservices/axuielementcreatesystemwide()
AXUIElementRef AXUIElementCreateSystemWide(void);
// https://developer.apple.com/documentation/applicationservices/axuielementcreateapplication(_:)
AXUIElementRef AXUIElementCreateApplication(pid_t pid);
// https://developer.apple.com/documentation/applicationservices/axuielementcopyattributenames(_:_:)
AXError AXUIElementCopyAttributeNames(AXUIElementRef element, CFArrayRef* names);
// https://developer.apple.com/documentation/applicationservices/axuielementcopyattributevalue(_:_:_:)
AXError AXUIElementCopyAttributeValue(AXUIElementRef element, CFStringRef attribute, CFTypeRef* value);
// https://developer.apple.com/documentation/applicationservices/axuielementisattributesettable(_:_:_:)
AXError AXUIElementIsAttributeSettable(AXUIElementRef element, CFStringRef attribute, Boolean* settable);
// https://developer.apple.com/documentation/applicationservices/axuielementsetattributevalue(_:_:_:)
AXError AXUIElementSetAttributeValue(AXUIElementRef element, CFStringRef attribute, CFTypeRef value);
// https://developer.apple.com/documentation/applicationservices/axuielementcopyactionnames(_:_:)
AXError AXUIElementCopyActionNames(AXUIElementRef element, CFArrayRef* names);
// https://developer.apple.com/documentation/applicationservices/axuielementperformaction(_:_:)
AXError AXUIElementPerformAction(AXUIElementRef element, CFStringRef action);
// https://developer.apple.com/documentation/applicationservices/axuielementcopyparameterizedattributevalue(_:_:_:_:)
AXError AXUIElementCopyParameterizedAttributeValue(AXUIElementRef element, CFStringRef parameterizedAttribute,
                                                   CFTypeRef parameter, CFTypeRef* result);
// https://developer.apple.com/documentation/applicationservices/axuielementsetmessagingtimeout(_:_:)
AXError AXUIElementSetMessagingTimeout(AXUIElementRef element, float timeoutInSeconds);
}
