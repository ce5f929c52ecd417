#pragma once

#include <Foundation/NSCollections.h>
#include <Foundation/NSError.h>
#include <Foundation/NSObject.h>
#include <Foundation/NSString.h>
#include <Foundation/NSURL.h>

// https://developer.apple.com/documentation/foundation/process/terminationreason-swift.enum
typedef NSInteger NSTaskTerminationReason;
enum : NSTaskTerminationReason { NSTaskTerminationReasonExit = 1 };

// https://developer.apple.com/documentation/foundation/process
@interface NSTask : NSObject
// https://developer.apple.com/documentation/foundation/process/executableurl
@property(copy) NSURL* executableURL;
// https://developer.apple.com/documentation/foundation/process/arguments
@property(copy) NSArray<NSString*>* arguments;
// https://developer.apple.com/documentation/foundation/process/standarderror
@property(retain) id standardError;
// https://developer.apple.com/documentation/foundation/process/standardoutput
@property(retain) id standardOutput;
// https://developer.apple.com/documentation/foundation/process/run()
- (BOOL)launchAndReturnError:(NSError**)error;
// https://developer.apple.com/documentation/foundation/process/waituntilexit()
- (void)waitUntilExit;
// https://developer.apple.com/documentation/foundation/process/terminationstatus
@property(readonly) int terminationStatus;
// https://developer.apple.com/documentation/foundation/process/terminationreason-swift.property
@property(readonly) NSTaskTerminationReason terminationReason;
@end
