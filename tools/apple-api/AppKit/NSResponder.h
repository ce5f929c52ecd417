#pragma once

#include <Foundation/Foundation.h>

// https://developer.apple.com/documentation/appkit/nsresponder
@interface NSResponder : NSObject
@end
