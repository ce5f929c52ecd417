#pragma once
// The accessibility part of Application Services:
// https://developer.apple.com/documentation/applicationservices/axuielement_h

#include <HIServices/AXError.h>
#include <HIServices/AXValue.h>
#include <HIServices/AXUIElement.h>
#include <HIServices/AXAttributeConstants.h>
#include <HIServices/AXRoleConstants.h>
