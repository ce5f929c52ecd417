#pragma once

#include "FakeClipboardCaptureControl.h"
#include "core/EventLoopClock.h"
#include "exchange/AccessibilityTextReader.h"
#include "exchange/FocusService.h"
#include "exchange/PasteboardService.h"
#include "platform/x11/UnavailableAccessibilityTree.h"
#include "platform/x11/X11ApplicationWorkspace.h"
#include "platform/x11/X11DisplayConnection.h"
#include "platform/x11/X11EventPump.h"
#include "platform/x11/X11ModifierKeyState.h"
#include "platform/x11/X11Pasteboard.h"
#include "platform/x11/X11PermissionProbe.h"
#include "platform/x11/X11SyntheticKeyboard.h"

// The clipboard route of the exchange on the real display, wired as the app wires it, with an empty
// accessibility tree (so the copy route is what runs) and no clipboard history to hold back.
class X11ExchangeStack {
protected:
    X11DisplayConnection display;
    EventLoopClock clock;
    X11EventPump pump{display.get(), clock};
    X11Pasteboard pasteboard{pump};
    FakeClipboardCaptureControl capture;
    X11ApplicationWorkspace workspace{pump};
    UnavailableAccessibilityTree tree;
    FocusService focus{workspace, tree};
    AccessibilityTextReader reader{focus, workspace, tree};
    X11SyntheticKeyboard keyboard{display.get(), [this] {
                                      const std::optional<RunningApplication> front =
                                          workspace.frontmostApplication();
                                      return front ? front->bundleIdentifier : QString();
                                  }};
    X11ModifierKeyState modifiers{display.get()};
    X11PermissionProbe permissions{display.get()};
    PasteboardService service{
        {clock, pasteboard, capture, focus, reader, workspace, keyboard, modifiers, permissions}};
};
