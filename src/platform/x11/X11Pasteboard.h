#pragma once

#include "platform/Pasteboard.h"

#include <chrono>
#include <memory>

class X11EventPump;

// The CLIPBOARD selection of an X server, on the program's shared connection. Ownership changes are
// watched through XFixes; while this object owns the clipboard it serves every saved type from memory
// (large values incrementally), so it never waits on itself. A read of another owner's contents awaits
// each answer through the event pump for at most readTimeout. GUI thread only.
class X11Pasteboard : public Pasteboard {
public:
    static constexpr std::chrono::milliseconds readTimeout{1000};
    // How long the exit waits for a clipboard manager to take the contents over.
    static constexpr std::chrono::milliseconds handOverTimeout{3000};

    // Works on the pump's connection; the pump must outlive this object. Without a server or XFixes every
    // read gives nothing and writes are dropped.
    explicit X11Pasteboard(X11EventPump& pump);
    X11Pasteboard(const X11Pasteboard&) = delete;
    X11Pasteboard& operator=(const X11Pasteboard&) = delete;
    // Hands contents it still owns to a running clipboard manager, so they outlive this process. Blocks for
    // up to handOverTimeout while serving the manager, since at exit there is no event loop left to return
    // to.
    ~X11Pasteboard() override;

    bool isConnected() const;
    // Whether this object is the clipboard's present owner. Blocks for one round trip.
    bool ownsClipboard();

    qint64 changeCount() override;
    QCoro::Task<std::optional<QStringList>> types() override;
    QCoro::Task<std::optional<QByteArray>> data(QString type) override;
    QCoro::Task<std::optional<QString>> string() override;
    QCoro::Task<PasteboardSnapshot> snapshot() override;
    void restore(const PasteboardSnapshot& snapshot) override;
    void clear() override;
    void writeString(const QString& text) override;

    // The window that owns the PRIMARY selection (what the user last selected anywhere), or 0. Blocks for
    // one round trip.
    unsigned long primaryOwner() const;
    // The PRIMARY selection's text as its owner serves it, within readTimeout; nullopt when nobody owns it
    // or it offers no text. Awaitable.
    QCoro::Task<std::optional<QString>> primaryString();

private:
    struct Private;
    std::unique_ptr<Private> d;
};
