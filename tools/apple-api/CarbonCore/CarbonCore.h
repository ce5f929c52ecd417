#pragma once
// Carbon Core, a part of Core Services: https://developer.apple.com/documentation/coreservices/carbon_core

#include <MacTypes.h>
#include <CarbonCore/MacErrors.h>
#include <CarbonCore/UnicodeUtilities.h>
