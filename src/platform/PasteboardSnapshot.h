#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

// One representation of a clipboard item: its type name and its bytes exactly as the owner served them.
struct SavedPasteboardValue {
    QString type;
    QByteArray data;

    bool operator==(const SavedPasteboardValue&) const = default;
};

// One item of the clipboard with every representation it offered, in the owner's order.
struct SavedPasteboardItem {
    QList<SavedPasteboardValue> values;

    bool operator==(const SavedPasteboardItem&) const = default;
};

// A complete copy of the clipboard, taken and put back within one transient use; never persisted.
struct PasteboardSnapshot {
    QList<SavedPasteboardItem> items;

    bool operator==(const PasteboardSnapshot&) const = default;
};
