#pragma once

#include <Foundation/NSCollections.h>
#include <Foundation/NSError.h>
#include <Foundation/NSObject.h>
#include <Foundation/NSString.h>
#include <Foundation/NSURL.h>

// https://developer.apple.com/documentation/foundation/nstask/terminationreason
typedef NSInteger NSTaskTerminationReason;
enum : NSTaskTerminationReason { NSTaskTerminationReasonExit = 1 };

// https://developer.apple.com/documentation/foundation/nstask
@interface NSTask : NSObject
// https://developer.apple.com/documentation/foundation/nstask/1414152-executableurl
@property(copy) NSURL* executableURL;
// https://developer.apple.com/documentation/foundation/nstask/1408983-arguments
@property(copy) NSArray<NSString*>* arguments;
// https://developer.apple.com/documentation/foundation/nstask/1414179-standarderror
@property(retain) id standardError;
// https://developer.apple.com/documentation/foundation/nstask/1409576-standardoutput
@property(retain) id standardOutput;
// https://developer.apple.com/documentation/foundation/nstask/2890108-launchandreturnerror
- (BOOL)launchAndReturnError:(NSError**)error;
// https://developer.apple.com/documentation/foundation/nstask/1415808-waituntilexit
- (void)waitUntilExit;
// https://developer.apple.com/documentation/foundation/nstask/1409429-terminationstatus
@property(readonly) int terminationStatus;
// https://developer.apple.com/documentation/foundation/nstask/1410911-terminationreason
@property(readonly) NSTaskTerminationReason terminationReason;
@end
