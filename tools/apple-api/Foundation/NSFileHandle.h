#pragma once

#include <Foundation/NSData.h>
#include <Foundation/NSObject.h>

// https://developer.apple.com/documentation/foundation/filehandle
@interface NSFileHandle : NSObject
// https://developer.apple.com/documentation/foundation/filehandle/nulldevice
+ (NSFileHandle*)fileHandleWithNullDevice;
// https://developer.apple.com/documentation/foundation/filehandle/readdatatoendoffile()
- (NSData*)readDataToEndOfFile;
@end

// https://developer.apple.com/documentation/foundation/pipe
@interface NSPipe : NSObject
// https://developer.apple.com/documentation/foundation/pipe/init()
+ (NSPipe*)pipe;
// https://developer.apple.com/documentation/foundation/pipe/filehandleforreading
@property(readonly, retain) NSFileHandle* fileHandleForReading;
@end
