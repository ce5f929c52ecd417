#pragma once

#include <Foundation/NSData.h>
#include <Foundation/NSObject.h>

// https://developer.apple.com/documentation/foundation/nsfilehandle
@interface NSFileHandle : NSObject
// https://developer.apple.com/documentation/foundation/nsfilehandle/1414360-filehandlewithnulldevice
+ (NSFileHandle*)fileHandleWithNullDevice;
// https://developer.apple.com/documentation/foundation/nsfilehandle/1411463-readdatatoendoffile
- (NSData*)readDataToEndOfFile;
@end

// https://developer.apple.com/documentation/foundation/nspipe
@interface NSPipe : NSObject
// https://developer.apple.com/documentation/foundation/nspipe/1414438-pipe
+ (NSPipe*)pipe;
// https://developer.apple.com/documentation/foundation/nspipe/1414352-filehandleforreading
@property(readonly, retain) NSFileHandle* fileHandleForReading;
@end
