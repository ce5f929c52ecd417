#pragma once
// Carbon: https://developer.apple.com/documentation/carbon

#include <CoreServices/CoreServices.h>
#include <ApplicationServices/ApplicationServices.h>
#include <HIToolbox/HIToolbox.h>
