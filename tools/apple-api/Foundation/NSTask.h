#pragma once

#include <Foundation/NSCollections.h>
#include <Foundation/NSURL.h>

@class NSError;

// https://developer.apple.com/documentation/foundation/nstask
@interface NSTask : NSObject
// https://developer.apple.com/documentation/foundation/nstask/2890108-executableurl
@property(copy) NSURL* executableURL;
// https://developer.apple.com/documentation/foundation/nstask/1408983-arguments
@property(copy) NSArray<NSString*>* arguments;
// https://developer.apple.com/documentation/foundation/nstask/2890105-launchandreturnerror
- (BOOL)launchAndReturnError:(NSError**)error;
@end
