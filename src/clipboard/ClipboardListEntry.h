#pragma once

#include <QString>

// One row of the panel's list: a history item or a note, with its text shared, not copied.
struct ClipboardListEntry {
    QString id;
    QString text;
    // User-perceived characters of text.
    int chars = 0;

    bool operator==(const ClipboardListEntry&) const = default;
};
