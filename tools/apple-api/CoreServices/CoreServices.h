#pragma once
// Core Services: https://developer.apple.com/documentation/coreservices

#include <CoreFoundation/CoreFoundation.h>
#include <CarbonCore/CarbonCore.h>
