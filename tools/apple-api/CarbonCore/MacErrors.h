#pragma once

// https://developer.apple.com/documentation/coreservices/carbon_core/mac_os_error_codes
enum { paramErr = -50 };
