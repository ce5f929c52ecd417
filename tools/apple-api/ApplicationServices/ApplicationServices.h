#pragma once
// Application Services: https://developer.apple.com/documentation/applicationservices

#include <CoreFoundation/CoreFoundation.h>
#include <CoreGraphics/CoreGraphics.h>
#include <HIServices/HIServices.h>
