#pragma once
// https://developer.apple.com/documentation/foundation/collections

#include <Foundation/NSObject.h>

// https://developer.apple.com/documentation/foundation/nsarray
@interface NSArray<__covariant ObjectType> : NSObject
@property(readonly) NSUInteger count;
// https://developer.apple.com/documentation/foundation/nsarray/1417555-objectatindex
- (ObjectType)objectAtIndex:(NSUInteger)index;
// https://developer.apple.com/documentation/foundation/nsarray/1415405-objectatindexedsubscript
- (ObjectType)objectAtIndexedSubscript:(NSUInteger)index;
// https://developer.apple.com/documentation/foundation/nsarray/1460068-arraywithobjects
+ (instancetype)arrayWithObjects:(const ObjectType[])objects count:(NSUInteger)count;
// https://developer.apple.com/documentation/foundation/nsarray/firstobject
@property(readonly) ObjectType firstObject;
@end

// https://developer.apple.com/documentation/foundation/nsdictionary
@interface NSDictionary<__covariant KeyType, __covariant ObjectType> : NSObject
// https://developer.apple.com/documentation/foundation/nsdictionary/1414347-objectforkey
- (ObjectType)objectForKey:(KeyType)key;
// https://developer.apple.com/documentation/foundation/nsdictionary/1535374-objectforkeyedsubscript
- (ObjectType)objectForKeyedSubscript:(KeyType)key;
// https://developer.apple.com/documentation/foundation/nsdictionary/1574184-dictionarywithobjects
+ (instancetype)dictionaryWithObjects:(const ObjectType[])objects
                              forKeys:(const KeyType<NSCopying>[])keys
                                count:(NSUInteger)count;
@end

// https://developer.apple.com/documentation/foundation/nsnumber
@interface NSNumber : NSObject <NSCopying>
// https://developer.apple.com/documentation/foundation/nsnumber/1551475-numberwithbool
+ (NSNumber*)numberWithBool:(BOOL)value;
// https://developer.apple.com/documentation/foundation/nsnumber/1410865-boolvalue
@property(readonly) BOOL boolValue;
// https://developer.apple.com/documentation/foundation/nsnumber/numberwithdouble:
+ (NSNumber*)numberWithDouble:(double)value;
// https://developer.apple.com/documentation/foundation/nsnumber/numberwithint:
+ (NSNumber*)numberWithInt:(int)value;
// https://developer.apple.com/documentation/foundation/nsnumber/intvalue
@property(readonly) int intValue;
// https://developer.apple.com/documentation/foundation/nsnumber/uint32value
@property(readonly) unsigned int unsignedIntValue;
// https://developer.apple.com/documentation/foundation/nsnumber/doublevalue
@property(readonly) double doubleValue;
// https://developer.apple.com/documentation/foundation/nsnumber/integervalue
@property(readonly) NSInteger integerValue;
@end

// https://developer.apple.com/documentation/foundation/nsmutablearray
@interface NSMutableArray<ObjectType> : NSArray<ObjectType>
// https://developer.apple.com/documentation/foundation/nsmutablearray/addobject(_:)
- (void)addObject:(ObjectType)object;
@end
