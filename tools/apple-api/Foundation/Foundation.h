#pragma once
// Foundation: https://developer.apple.com/documentation/foundation

#include <CoreFoundation/CoreFoundation.h>
#include <Foundation/NSObject.h>
#include <Foundation/NSString.h>
#include <Foundation/NSCollections.h>
#include <Foundation/NSData.h>
