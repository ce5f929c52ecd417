#pragma once

#include "platform/Pasteboard.h"

#include <chrono>
#include <memory>

// The CLIPBOARD selection of an X server, on a connection of its own. Ownership changes are watched through
// XFixes on the Qt event loop; while this object owns the clipboard it serves every saved type from memory
// (large values incrementally), so it never waits on itself. Reads of another owner wait for its answer on
// the connection for at most readTimeout. GUI thread only.
class X11Pasteboard : public Pasteboard {
public:
    static constexpr std::chrono::milliseconds readTimeout{1000};

    // Connects to displayName, or to $DISPLAY when it is empty. Without a server or XFixes every read gives
    // nothing and writes are dropped.
    explicit X11Pasteboard(const QByteArray& displayName = {});
    X11Pasteboard(const X11Pasteboard&) = delete;
    X11Pasteboard& operator=(const X11Pasteboard&) = delete;
    // Hands contents it still owns to a running clipboard manager, so they outlive this process.
    ~X11Pasteboard() override;

    bool isConnected() const;
    // Whether this object is the clipboard's present owner. Blocks for one round trip.
    bool ownsClipboard();

    qint64 changeCount() override;
    std::optional<QStringList> types() override;
    std::optional<QByteArray> data(const QString& type) override;
    std::optional<QString> string() override;
    PasteboardSnapshot snapshot() override;
    void restore(const PasteboardSnapshot& snapshot) override;
    void clear() override;
    void writeString(const QString& text) override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};
