#pragma once

#include <CoreFoundation/CoreFoundation.h>

// https://developer.apple.com/documentation/applicationservices/kaxstandardwindowsubrole
#define kAXStandardWindowSubrole CFSTR("AXStandardWindow")
