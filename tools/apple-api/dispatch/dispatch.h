#pragma once
// Dispatch: https://developer.apple.com/documentation/dispatch

#include <dispatch/object.h>
#include <dispatch/queue.h>
