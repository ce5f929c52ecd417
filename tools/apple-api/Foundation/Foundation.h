#pragma once
// Foundation: https://developer.apple.com/documentation/foundation

#include <CoreFoundation/CoreFoundation.h>
#include <Foundation/NSObject.h>
#include <Foundation/NSString.h>
#include <Foundation/NSCollections.h>
#include <Foundation/NSData.h>
#include <Foundation/NSGeometry.h>
#include <Foundation/NSError.h>
#include <Foundation/NSURL.h>
#include <Foundation/NSFileHandle.h>
#include <Foundation/NSTask.h>
#include <Foundation/NSFileManager.h>
#include <Foundation/NSPathUtilities.h>
#include <Foundation/NSBundle.h>
#include <Foundation/NSNotification.h>
#include <Foundation/NSOperation.h>
#include <Foundation/NSObjCRuntime.h>
#include <Foundation/NSUserDefaults.h>
#include <Foundation/NSAppleEventDescriptor.h>
#include <Foundation/NSAppleScript.h>
