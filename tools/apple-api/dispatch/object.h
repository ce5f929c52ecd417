#pragma once

// https://developer.apple.com/documentation/dispatch/dispatch_block_t
typedef void (^dispatch_block_t)(void);
