#pragma once

#include "platform/SyntheticKeyboard.h"

// Command shortcuts as Quartz key events posted at the HID level. Each event carries the Command flag alone,
// which replaces whatever modifiers the user still holds, so the target sees exactly the shortcut; no
// separate modifier key goes down or up.
class MacSyntheticKeyboard : public SyntheticKeyboard {
public:
    bool pressShortcut(quint16 virtualKey) override;
    bool releaseShortcut(quint16 virtualKey) override;

private:
    static bool post(quint16 virtualKey, bool keyDown);
};
