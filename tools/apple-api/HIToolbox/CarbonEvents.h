#pragma once
// The Carbon Event Manager: https://developer.apple.com/library/archive/documentation/Carbon/Reference/Carbon_Event_Manager_Ref/

#include <HIToolbox/CarbonEventsCore.h>
#include <MacTypes.h>

// https://developer.apple.com/library/archive/documentation/Carbon/Reference/Carbon_Event_Manager_Ref/#//apple_ref/c/tdef/EventHotKeyRef
typedef struct OpaqueEventHotKeyRef* EventHotKeyRef;

// https://developer.apple.com/library/archive/documentation/Carbon/Reference/Carbon_Event_Manager_Ref/#//apple_ref/c/tdef/EventHotKeyID
struct EventHotKeyID {
    OSType signature;
    UInt32 id;
};
typedef struct EventHotKeyID EventHotKeyID;

// 'keyb': https://developer.apple.com/library/archive/documentation/Carbon/Reference/Carbon_Event_Manager_Ref/#//apple_ref/doc/constant_group/Event_Class_Constants
enum : OSType { kEventClassKeyboard = 0x6B657962 };
// https://developer.apple.com/library/archive/documentation/Carbon/Reference/Carbon_Event_Manager_Ref/#//apple_ref/doc/constant_group/Keyboard_Event_Constants
enum : UInt32 { kEventHotKeyPressed = 5 };
// 'hkid': https://developer.apple.com/library/archive/documentation/Carbon/Reference/Carbon_Event_Manager_Ref/#//apple_ref/doc/constant_group/Event_Parameters
enum : EventParamType { typeEventHotKeyID = 0x686B6964 };

extern "C" {
// https://developer.apple.com/library/archive/documentation/Carbon/Reference/Carbon_Event_Manager_Ref/#//apple_ref/c/func/GetApplicationEventTarget
EventTargetRef GetApplicationEventTarget(void);
// https://developer.apple.com/library/archive/documentation/Carbon/Reference/Carbon_Event_Manager_Ref/#//apple_ref/c/func/RegisterEventHotKey
OSStatus RegisterEventHotKey(UInt32 inHotKeyCode, UInt32 inHotKeyModifiers, EventHotKeyID inHotKeyID,
                             EventTargetRef inTarget, OptionBits inOptions, EventHotKeyRef* outRef);
// https://developer.apple.com/library/archive/documentation/Carbon/Reference/Carbon_Event_Manager_Ref/#//apple_ref/c/func/UnregisterEventHotKey
OSStatus UnregisterEventHotKey(EventHotKeyRef inHotKey);
}
