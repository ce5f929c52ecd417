#pragma once
// https://developer.apple.com/documentation/appkit/nspasteboarditem

#include <AppKit/NSPasteboard.h>

@interface NSPasteboardItem : NSObject <NSPasteboardWriting>
// https://developer.apple.com/documentation/appkit/nspasteboarditem/types
@property(readonly, copy) NSArray<NSPasteboardType>* types;
// https://developer.apple.com/documentation/appkit/nspasteboarditem/setdata(_:fortype:)
- (BOOL)setData:(NSData*)data forType:(NSPasteboardType)type;
// https://developer.apple.com/documentation/appkit/nspasteboarditem/data(fortype:)
- (NSData*)dataForType:(NSPasteboardType)type;
@end
