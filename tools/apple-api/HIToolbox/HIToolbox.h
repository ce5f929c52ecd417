#pragma once
// HIToolbox, a part of Carbon: https://developer.apple.com/documentation/carbon

#include <CoreFoundation/CoreFoundation.h>
#include <MacTypes.h>
#include <HIToolbox/Events.h>
#include <HIToolbox/TextInputSources.h>
#include <HIToolbox/CarbonEventsCore.h>
#include <HIToolbox/CarbonEvents.h>
