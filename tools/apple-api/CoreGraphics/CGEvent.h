#pragma once

extern "C" {
// https://developer.apple.com/documentation/coregraphics/3656522-cgpreflightlisteneventaccess
bool CGPreflightListenEventAccess(void);
// https://developer.apple.com/documentation/coregraphics/3656523-cgrequestlisteneventaccess
bool CGRequestListenEventAccess(void);
}
