#pragma once

#include <CoreFoundation/CoreFoundation.h>
#include <HIServices/AXError.h>
#include <sys/types.h>

// https://developer.apple.com/documentation/applicationservices/axuielement
typedef const struct __AXUIElement* AXUIElementRef;

extern "C" {
// https://developer.apple.com/documentation/applicationservices/1460720-axisprocesstrusted
Boolean AXIsProcessTrusted(void);
// https://developer.apple.com/documentation/applicationservices/1459186-axisprocesstrustedwithoptions
Boolean AXIsProcessTrustedWithOptions(CFDictionaryRef options);
// https://developer.apple.com/documentation/applicationservices/kaxtrustedcheckoptionprompt
extern const CFStringRef kAXTrustedCheckOptionPrompt;
// https://developer.apple.com/documentation/applicationservices/1459335-axuielementgettypeid
CFTypeID AXUIElementGetTypeID(void);
// https://developer.apple.com/documentation/applicationservices/1462095-axuielementcreatesystemwide
AXUIElementRef AXUIElementCreateSystemWide(void);
// https://developer.apple.com/documentation/applicationservices/1459374-axuielementcreateapplication
AXUIElementRef AXUIElementCreateApplication(pid_t pid);
// https://developer.apple.com/documentation/applicationservices/1459475-axuielementcopyattributenames
AXError AXUIElementCopyAttributeNames(AXUIElementRef element, CFArrayRef* names);
// https://developer.apple.com/documentation/applicationservices/1462085-axuielementcopyattributevalue
AXError AXUIElementCopyAttributeValue(AXUIElementRef element, CFStringRef attribute, CFTypeRef* value);
// https://developer.apple.com/documentation/applicationservices/1459972-axuielementisattributesettable
AXError AXUIElementIsAttributeSettable(AXUIElementRef element, CFStringRef attribute, Boolean* settable);
// https://developer.apple.com/documentation/applicationservices/1460434-axuielementsetattributevalue
AXError AXUIElementSetAttributeValue(AXUIElementRef element, CFStringRef attribute, CFTypeRef value);
// https://developer.apple.com/documentation/applicationservices/1459153-axuielementcopyactionnames
AXError AXUIElementCopyActionNames(AXUIElementRef element, CFArrayRef* names);
// https://developer.apple.com/documentation/applicationservices/1462091-axuielementperformaction
AXError AXUIElementPerformAction(AXUIElementRef element, CFStringRef action);
// https://developer.apple.com/documentation/applicationservices/1462099-axuielementcopyparameterizedattr
AXError AXUIElementCopyParameterizedAttributeValue(AXUIElementRef element, CFStringRef parameterizedAttribute,
                                                   CFTypeRef parameter, CFTypeRef* result);
// https://developer.apple.com/documentation/applicationservices/1459345-axuielementsetmessagingtimeout
AXError AXUIElementSetMessagingTimeout(AXUIElementRef element, float timeoutInSeconds);
}
