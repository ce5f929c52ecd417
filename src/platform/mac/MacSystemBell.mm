#include "platform/mac/MacSystemBell.h"

#include <AppKit/AppKit.h>

void MacSystemBell::ring()
{
    NSBeep();
}
