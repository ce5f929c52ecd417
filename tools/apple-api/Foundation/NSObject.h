#pragma once
// https://developer.apple.com/documentation/objectivec

#include <stddef.h>

// https://developer.apple.com/documentation/objectivec/bool
typedef signed char BOOL;
#define YES ((BOOL)1)
#define NO ((BOOL)0)
// https://developer.apple.com/documentation/objectivec/nsinteger
typedef long NSInteger;
// https://developer.apple.com/documentation/objectivec/nsuinteger
typedef unsigned long NSUInteger;
// https://developer.apple.com/documentation/objectivec/sel
typedef struct objc_selector* SEL;

// https://developer.apple.com/documentation/objectivec/nil
#define nil nullptr

@class NSString;

// https://developer.apple.com/documentation/objectivec/nsobject
__attribute__((objc_root_class))
@interface NSObject
+ (instancetype)alloc;
+ (instancetype)new;
- (instancetype)init;
// https://developer.apple.com/documentation/objectivec/1418956-nsobject/1418583-respondstoselector
- (BOOL)respondsToSelector:(SEL)selector;
// https://developer.apple.com/documentation/objectivec/1418956-nsobject/1418511-iskindofclass
- (BOOL)isKindOfClass:(Class)aClass;
// https://developer.apple.com/documentation/objectivec/nsobject/1418691-class
+ (Class)class;
// https://developer.apple.com/documentation/objectivec/1418956-nsobject/1418746-description
@property(readonly, copy) NSString* description;
@end

// https://developer.apple.com/documentation/foundation/nscopying
@protocol NSCopying
@end
