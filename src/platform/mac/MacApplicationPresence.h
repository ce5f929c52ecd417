#pragma once

#include "platform/ApplicationPresence.h"

// The application's activation policy: regular with a Dock icon and the main menu, or an accessory that
// lives in the menu bar; and the main window's unified, transparent title bar.
class MacApplicationPresence : public ApplicationPresence {
public:
    void setRegular(bool regular) override;
    // nativeWindow is what QWindow::winId() gives on macOS: the window's NSView.
    void applyMainWindowTraits(quintptr nativeWindow) override;
};
