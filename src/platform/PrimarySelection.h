#pragma once

#include <QString>
#include <optional>
#include <qcoro/qcorotask.h>

// What the user selected, as the windowing system holds it apart from the clipboard (X11's PRIMARY
// selection). Reading it sends no keys and leaves the clipboard alone. Platforms without one answer nullopt
// at once.
class PrimarySelection {
public:
    virtual ~PrimarySelection() = default;

    // The selected text when a window of that process owns the selection; nullopt when another process
    // or nobody owns it, it holds no text, or the owner does not answer within a bounded wait. Awaitable;
    // GUI thread.
    virtual QCoro::Task<std::optional<QString>> selectedText(qint32 ownerProcessIdentifier) = 0;
};
