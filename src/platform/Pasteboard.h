#pragma once

#include "platform/PasteboardSnapshot.h"

#include <QStringList>
#include <optional>
#include <qcoro/qcorotask.h>

// The system clipboard. All members are for the GUI thread. Reads are awaitable: contents this process
// owns answer at once, contents served by another process take as long as it needs to answer, within a
// bounded time, while the event loop runs on.
class Pasteboard {
public:
    virtual ~Pasteboard() = default;

    // A counter that moves on every change of the clipboard's contents or owner, ours included. Non-blocking.
    virtual qint64 changeCount() = 0;
    // The type names on offer, or nullopt when nobody owns the clipboard. Awaitable.
    virtual QCoro::Task<std::optional<QStringList>> types() = 0;
    // The bytes of one type, or nullopt when it is not on offer. Awaitable.
    virtual QCoro::Task<std::optional<QByteArray>> data(QString type) = 0;
    // The plain-text value, or nullopt when there is none. Awaitable.
    virtual QCoro::Task<std::optional<QString>> string() = 0;
    // Every item with every type as bytes; types that give no data are left out. Awaitable.
    virtual QCoro::Task<PasteboardSnapshot> snapshot() = 0;
    // Clears the clipboard, then offers exactly the saved items and types; an empty snapshot leaves it
    // empty. Non-blocking.
    virtual void restore(const PasteboardSnapshot& snapshot) = 0;
    // Leaves the clipboard without contents. Non-blocking.
    virtual void clear() = 0;
    // Replaces the contents with one plain text. Non-blocking.
    virtual void writeString(const QString& text) = 0;
};
