#pragma once
// The accessibility part of Application Services:
// https://developer.apple.com/documentation/applicationservices/axuielement_h

#include <HIServices/AXUIElement.h>
