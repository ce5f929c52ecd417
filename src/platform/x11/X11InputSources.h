#pragma once

#include "platform/InputSourceProvider.h"
#include "platform/x11/X11EventPump.h"

#include <QByteArray>
#include <memory>

struct _XDisplay;

// The XKB groups of the running X server as keyboard input sources: names from the keymap, identifiers in
// setxkbmap form ("us", "ru(phonetic)") from the server's rules names. Keys are found by their XKB key
// names, so any keycode set works. Owns its own connection to the server.
class X11InputSources : public InputSourceProvider {
public:
    // Connects to displayName, or to $DISPLAY when empty. Without a server or XKB every list is empty.
    explicit X11InputSources(const QByteArray& displayName = {});
    ~X11InputSources() override;

    X11InputSources(const X11InputSources&) = delete;
    X11InputSources& operator=(const X11InputSources&) = delete;

    bool isConnected() const { return m_display != nullptr; }
    // Reports changes of the active group from now on, read from XKB's state notices on the pump's
    // connection, which must outlive this object. Without it no change is ever reported.
    void followChanges(X11EventPump& pump);

    QList<PlatformInputSource> inputSources() override;
    std::optional<PlatformInputSource> currentSource() override;
    std::int32_t selectSource(const InputSourceRef& source) override;
    std::optional<QString> translateKey(const InputSourceRef& source, int keyCode, bool shift) override;
    ListenerSubscription subscribeToSourceChanges(std::function<void()> handler) override
    {
        return m_changes.subscribe(std::move(handler));
    }

private:
    struct DisplayCloser {
        void operator()(_XDisplay* display) const;
    };
    struct Keymap;
    struct Group;

    std::shared_ptr<const Keymap> fetchKeymap() const;

    std::unique_ptr<_XDisplay, DisplayCloser> m_display;
    ListenerList<> m_changes;
    // Last, so no event reaches a half-destroyed object.
    X11EventPump::Subscription m_events;
};
