#pragma once

#include "platform/PrimarySelection.h"

typedef struct _XDisplay Display;
class X11Pasteboard;

// The PRIMARY selection of the X server. Its owner's process is asked of the server itself (the X-Resource
// extension), since the window owning a selection is often a hidden one without _NET_WM_PID.
class X11PrimarySelection : public PrimarySelection {
public:
    // Both must outlive this object; a null display answers nothing.
    X11PrimarySelection(Display* display, X11Pasteboard& pasteboard);

    QCoro::Task<std::optional<QString>> selectedText(qint32 ownerProcessIdentifier) override;

    // The process of the client that created the window, or nullopt when the server cannot tell (a remote
    // client, or no X-Resource 1.2). Blocks for one round trip.
    std::optional<qint32> processOfWindow(unsigned long window) const;

private:
    Display* m_display;
    X11Pasteboard& m_pasteboard;
    bool m_hasClientIds = false;
};
