#pragma once

// The part of the clipboard history the application state may drive.
class ClipboardHistoryControl {
public:
    virtual ~ClipboardHistoryControl() = default;

    // Empties the history and persists the empty list. GUI thread; does not block for long.
    virtual void clearHistory() = 0;
};
