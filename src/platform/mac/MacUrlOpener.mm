#include "platform/mac/MacUrlOpener.h"

#include "platform/mac/MacStringBridge.h"

#include <AppKit/AppKit.h>

bool MacUrlOpener::openUrl(const QUrl& url)
{
    NSURL* target = [NSURL URLWithString:toNSString(url.toString(QUrl::FullyEncoded))];
    return target != nil && [[NSWorkspace sharedWorkspace] openURL:target];
}
