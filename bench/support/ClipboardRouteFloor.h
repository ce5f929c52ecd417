#pragma once

#include "core/PasteboardTiming.h"

#include <QString>
#include <optional>

// The sleeps of one transient clipboard use that no machine can beat, from the app's own timing: a read by
// copy, a paste up to the V press and the clipboard's restore after it, or the read and the paste in turn.
// The app holds every synthetic shortcut down for shortcutHold between its press and its release; the target
// acts on the press. A read assumes no modifier held (its wait costs nothing) and the first copy attempt
// finding the text.
class ClipboardRouteFloor {
public:
    static constexpr int shortcutHold = 20;

    // A read alone, with the select-all shortcut before the copy or without it.
    static ClipboardRouteFloor read(const PasteboardTiming& timing, bool selectsAll);
    // A paste alone.
    static ClipboardRouteFloor paste(const PasteboardTiming& timing);
    // A read, then a paste under the same timing.
    static ClipboardRouteFloor readThenPaste(const PasteboardTiming& timing, bool selectsAll);

    // Milliseconds until the text is read: the whole of a read alone.
    int toRead() const;
    // Milliseconds until V is pressed, the moment the target replaces its text.
    int toPastePress() const;
    // Milliseconds until the clipboard holds the user's content again.
    int toRestored() const;
    // The sum spelled out, each sleep named with its length.
    QString derivation() const;

private:
    ClipboardRouteFloor(const PasteboardTiming& timing, bool reads, bool selectsAll, bool pastes);
    QString readSteps() const;

    PasteboardTiming m_timing;
    bool m_reads = false;
    bool m_selectsAll = false;
    bool m_pastes = false;
};
