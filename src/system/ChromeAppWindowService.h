#pragma once

#include "core/WindowTilingHotkeys.h"
#include "platform/AccessibilityElement.h"

#include <functional>
#include <qcoro/qcorotask.h>

class AccessibilityTree;
class ApplicationWorkspace;
class BrowserTabRemote;
class Clock;

// Catches the half-screen hotkeys while the browser is in front: instead of tiling the whole browser window,
// its active tab moves into an app window of its own, which is tiled once it shows. Without a remote for the
// browser it never takes over. GUI thread.
class ChromeAppWindowService {
public:
    using TileFocusedWindow = std::function<void(WindowTileSlot)>;

    // remote may be null: the platform has no way to drive the browser.
    ChromeAppWindowService(ApplicationWorkspace& workspace, AccessibilityTree& accessibility,
                           BrowserTabRemote* remote, Clock& clock, TileFocusedWindow tile);

    // Whether it ever takes over: not without a remote for the browser. Non-blocking.
    bool canPopOut() const { return m_remote != nullptr; }
    // True when it has taken over the tiling, and the caller must not tile.
    bool popOutActiveTabIfNeeded(WindowTileSlot slot);

private:
    bool containsTextField(const AccessibilityElement& element, int depth, int& budget);
    QCoro::Task<> tileWhenShown(QString url, WindowTileSlot slot);

    ApplicationWorkspace& m_workspace;
    AccessibilityTree& m_accessibility;
    BrowserTabRemote* m_remote;
    Clock& m_clock;
    TileFocusedWindow m_tile;
};
