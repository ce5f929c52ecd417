#include "platform/mac/MacApplicationPresence.h"

#include <AppKit/AppKit.h>

void MacApplicationPresence::setRegular(bool regular)
{
    [NSApp setActivationPolicy:regular ? NSApplicationActivationPolicyRegular
                                       : NSApplicationActivationPolicyAccessory];
}
