#pragma once

#include "shell/MenuEntry.h"

// The tray entry as its controller sees it: an icon with the tool tip "MivoraAI" and a menu that can be
// rebuilt. A view implements it; it exists only while the icon is to be shown. GUI thread.
class TraySurface {
public:
    virtual ~TraySurface() = default;

    // Replaces the whole menu; the entries (and their actions) of the previous one are released now.
    // Non-blocking.
    virtual void setMenu(const MenuModel& menu) = 0;
};
