#pragma once
// Foundation: https://developer.apple.com/documentation/foundation

#include <CoreFoundation/CoreFoundation.h>
#include <Foundation/NSObject.h>
#include <Foundation/NSString.h>
#include <Foundation/NSCollections.h>
#include <Foundation/NSObjCRuntime.h>
#include <Foundation/NSURL.h>
#include <Foundation/NSUserDefaults.h>
#include <Foundation/NSAppleEventDescriptor.h>
#include <Foundation/NSAppleScript.h>
#include <Foundation/NSTask.h>
