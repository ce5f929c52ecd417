#include "platform/mac/MacModifierKeyState.h"

#include <ApplicationServices/ApplicationServices.h>

bool MacModifierKeyState::isAnyModifierHeld()
{
    constexpr CGEventFlags held =
        kCGEventFlagMaskShift | kCGEventFlagMaskControl | kCGEventFlagMaskAlternate | kCGEventFlagMaskCommand;
    return (CGEventSourceFlagsState(kCGEventSourceStateCombinedSessionState) & held) != 0;
}
