#pragma once
// https://developer.apple.com/documentation/appkit/nspasteboard

#include <Foundation/Foundation.h>

@class NSPasteboardItem;

// https://developer.apple.com/documentation/appkit/nspasteboard/pasteboardtype
typedef NSString* NSPasteboardType;

extern "C" {
// https://developer.apple.com/documentation/appkit/nspasteboard/pasteboardtype/string
extern NSPasteboardType const NSPasteboardTypeString;
}

// https://developer.apple.com/documentation/appkit/nspasteboardwriting
@protocol NSPasteboardWriting
@end

@interface NSPasteboard : NSObject
// https://developer.apple.com/documentation/appkit/nspasteboard/general
@property(class, readonly, strong) NSPasteboard* generalPasteboard;
// https://developer.apple.com/documentation/appkit/nspasteboard/changecount
@property(readonly) NSInteger changeCount;
// https://developer.apple.com/documentation/appkit/nspasteboard/types
@property(readonly, copy) NSArray<NSPasteboardType>* types;
// https://developer.apple.com/documentation/appkit/nspasteboard/pasteboarditems
@property(readonly, copy) NSArray<NSPasteboardItem*>* pasteboardItems;
// https://developer.apple.com/documentation/appkit/nspasteboard/clearcontents()
- (NSInteger)clearContents;
// https://developer.apple.com/documentation/appkit/nspasteboard/writeobjects(_:)
- (BOOL)writeObjects:(NSArray<id<NSPasteboardWriting>>*)objects;
// https://developer.apple.com/documentation/appkit/nspasteboard/data(fortype:)
- (NSData*)dataForType:(NSPasteboardType)dataType;
// https://developer.apple.com/documentation/appkit/nspasteboard/string(fortype:)
- (NSString*)stringForType:(NSPasteboardType)dataType;
// https://developer.apple.com/documentation/appkit/nspasteboard/setstring(_:fortype:)
- (BOOL)setString:(NSString*)string forType:(NSPasteboardType)dataType;
@end
