#pragma once

extern "C" {
// https://developer.apple.com/documentation/coregraphics/cgpreflightlisteneventaccess()
bool CGPreflightListenEventAccess(void);
// https://developer.apple.com/documentation/coregraphics/cgrequestlisteneventaccess()
bool CGRequestListenEventAccess(void);
}
