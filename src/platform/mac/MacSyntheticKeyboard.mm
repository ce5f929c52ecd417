#include "platform/mac/MacSyntheticKeyboard.h"

#include "platform/mac/MacCFRef.h"

#include <ApplicationServices/ApplicationServices.h>

bool MacSyntheticKeyboard::pressShortcut(quint16 virtualKey)
{
    return post(virtualKey, true);
}

bool MacSyntheticKeyboard::releaseShortcut(quint16 virtualKey)
{
    return post(virtualKey, false);
}

bool MacSyntheticKeyboard::post(quint16 virtualKey, bool keyDown)
{
    // A source in the HID system state, so the event is indistinguishable from one typed at the keyboard.
    const MacCFRef<CGEventSourceRef> source(CGEventSourceCreate(kCGEventSourceStateHIDSystemState));
    const MacCFRef<CGEventRef> event(
        CGEventCreateKeyboardEvent(source.get(), CGKeyCode(virtualKey), keyDown));
    if (!event) {
        return false;
    }
    CGEventSetFlags(event.get(), kCGEventFlagMaskCommand);
    CGEventPost(kCGHIDEventTap, event.get());
    return true;
}
