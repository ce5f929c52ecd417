#pragma once

// https://developer.apple.com/documentation/kernel/boolean_t
typedef int boolean_t;
