#pragma once
// The Carbon Event Manager: https://developer.apple.com/library/archive/documentation/Carbon/Reference/Carbon_Event_Manager_Ref/

#include <MacTypes.h>

// https://developer.apple.com/library/archive/documentation/Carbon/Reference/Carbon_Event_Manager_Ref/#//apple_ref/c/tdef/EventRef
typedef struct OpaqueEventRef* EventRef;
// https://developer.apple.com/library/archive/documentation/Carbon/Reference/Carbon_Event_Manager_Ref/#//apple_ref/c/tdef/EventHandlerRef
typedef struct OpaqueEventHandlerRef* EventHandlerRef;
// https://developer.apple.com/library/archive/documentation/Carbon/Reference/Carbon_Event_Manager_Ref/#//apple_ref/c/tdef/EventHandlerCallRef
typedef struct OpaqueEventHandlerCallRef* EventHandlerCallRef;
// https://developer.apple.com/library/archive/documentation/Carbon/Reference/Carbon_Event_Manager_Ref/#//apple_ref/c/tdef/EventTargetRef
typedef struct OpaqueEventTargetRef* EventTargetRef;
// https://developer.apple.com/library/archive/documentation/Carbon/Reference/Carbon_Event_Manager_Ref/#//apple_ref/c/tdef/EventParamName
typedef OSType EventParamName;
// https://developer.apple.com/library/archive/documentation/Carbon/Reference/Carbon_Event_Manager_Ref/#//apple_ref/c/tdef/EventParamType
typedef OSType EventParamType;

// https://developer.apple.com/library/archive/documentation/Carbon/Reference/Carbon_Event_Manager_Ref/#//apple_ref/c/tdef/EventTypeSpec
struct EventTypeSpec {
    OSType eventClass;
    UInt32 eventKind;
};
typedef struct EventTypeSpec EventTypeSpec;

// https://developer.apple.com/library/archive/documentation/Carbon/Reference/Carbon_Event_Manager_Ref/#//apple_ref/c/tdef/EventHandlerProcPtr
typedef OSStatus (*EventHandlerProcPtr)(EventHandlerCallRef inHandlerCallRef, EventRef inEvent, void* inUserData);
// https://developer.apple.com/library/archive/documentation/Carbon/Reference/Carbon_Event_Manager_Ref/#//apple_ref/c/tdef/EventHandlerUPP
typedef EventHandlerProcPtr EventHandlerUPP;

// '----': https://developer.apple.com/library/archive/documentation/Carbon/Reference/Carbon_Event_Manager_Ref/#//apple_ref/doc/constant_group/Event_Parameters
enum : EventParamName { kEventParamDirectObject = 0x2D2D2D2D };

extern "C" {
// https://developer.apple.com/library/archive/documentation/Carbon/Reference/Carbon_Event_Manager_Ref/#//apple_ref/c/func/InstallEventHandler
OSStatus InstallEventHandler(EventTargetRef inTarget, EventHandlerUPP inHandler, ItemCount inNumTypes,
                             const EventTypeSpec* inList, void* inUserData, EventHandlerRef* outRef);
// https://developer.apple.com/library/archive/documentation/Carbon/Reference/Carbon_Event_Manager_Ref/#//apple_ref/c/func/RemoveEventHandler
OSStatus RemoveEventHandler(EventHandlerRef inHandlerRef);
// https://developer.apple.com/library/archive/documentation/Carbon/Reference/Carbon_Event_Manager_Ref/#//apple_ref/c/func/GetEventParameter
OSStatus GetEventParameter(EventRef inEvent, EventParamName inName, EventParamType inDesiredType,
                           EventParamType* outActualType, ByteCount inBufferSize, ByteCount* outActualSize,
                           void* outData);
}
