#pragma once

#include <dispatch/object.h>
#include <stdint.h>

// https://developer.apple.com/documentation/dispatch/dispatch_queue_t
@protocol OS_dispatch_queue
@end
typedef id<OS_dispatch_queue> dispatch_queue_t;
// https://developer.apple.com/documentation/dispatch/dispatch_queue_main_t
typedef dispatch_queue_t dispatch_queue_main_t;
// https://developer.apple.com/documentation/dispatch/dispatch_queue_global_t
typedef dispatch_queue_t dispatch_queue_global_t;

// https://developer.apple.com/documentation/dispatch/dispatch_queue_priority_default
#define DISPATCH_QUEUE_PRIORITY_DEFAULT 0

extern "C" {
// https://developer.apple.com/documentation/dispatch/dispatch_async
void dispatch_async(dispatch_queue_t queue, dispatch_block_t block);
// https://developer.apple.com/documentation/dispatch/dispatch_get_main_queue
dispatch_queue_main_t dispatch_get_main_queue(void);
// https://developer.apple.com/documentation/dispatch/dispatch_get_global_queue
dispatch_queue_global_t dispatch_get_global_queue(intptr_t identifier, uintptr_t flags);
}
