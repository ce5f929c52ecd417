#pragma once

#include "platform/Pasteboard.h"

// The general pasteboard. Every read answers at once, since the pasteboard server hands other applications'
// data over synchronously; the awaitable members complete without suspending.
class MacPasteboard : public Pasteboard {
public:
    qint64 changeCount() override;
    QCoro::Task<std::optional<QStringList>> types() override;
    QCoro::Task<std::optional<QByteArray>> data(QString type) override;
    QCoro::Task<std::optional<QString>> string() override;
    QCoro::Task<PasteboardSnapshot> snapshot() override;
    void restore(const PasteboardSnapshot& snapshot) override;
    void clear() override;
    void writeString(const QString& text) override;
};
