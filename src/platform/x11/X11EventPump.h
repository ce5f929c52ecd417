#pragma once

#include "core/Clock.h"
#include "platform/ListenerList.h"
#include "platform/x11/X11RawInputSelection.h"

#include <QMetaObject>
#include <QObject>
#include <chrono>
#include <coroutine>
#include <functional>
#include <list>

// Xlib's own declarations, repeated so this header stays free of Xlib's macros.
typedef struct _XDisplay Display;
typedef union _XEvent XEvent;

// The one reader of this program's X connection. Adapters that follow events (clipboard, workspace,
// hotkeys, windows, displays) subscribe here instead of reading the queue themselves, so no adapter can
// swallow another's events, and an adapter that expects an answer from another client awaits it here
// instead of blocking the GUI thread. GUI thread only.
class X11EventPump : public QObject {
    Q_OBJECT
public:
    using Listener = std::function<void(const XEvent&)>;
    using Match = std::function<bool(const XEvent&)>;
    using Subscription = ListenerSubscription;

    // Suspends a coroutine until a matching event or the time-out; resumes with true when the event came.
    class WaitAwaiter {
    public:
        WaitAwaiter(X11EventPump& pump, Match match, std::chrono::milliseconds timeout, XEvent* received);
        // Moves only before it is awaited (a compiler may move the operand of co_await into the frame).
        WaitAwaiter(WaitAwaiter&& other) noexcept;
        WaitAwaiter(const WaitAwaiter&) = delete;
        WaitAwaiter& operator=(const WaitAwaiter&) = delete;
        WaitAwaiter& operator=(WaitAwaiter&&) = delete;
        ~WaitAwaiter();

        bool await_ready() const noexcept { return false; }
        bool await_suspend(std::coroutine_handle<> handle);
        bool await_resume() const noexcept { return m_matched; }

    private:
        friend class X11EventPump;
        void finish(bool matched);

        X11EventPump* m_pump;
        Match m_match;
        std::chrono::milliseconds m_timeout;
        XEvent* m_received;
        std::coroutine_handle<> m_handle;
        ClockTimer m_timer;
        bool m_waiting = false;
        bool m_suspending = false;
        bool m_matched = false;
    };

    // Reads display (which outlives the pump) whenever the connection has data and before the event loop
    // sleeps; time-outs of waits run on clock. A null display gives a pump that never delivers anything.
    X11EventPump(Display* display, Clock& clock, QObject* parent = nullptr);
    ~X11EventPump() override;
    X11EventPump(const X11EventPump&) = delete;
    X11EventPump& operator=(const X11EventPump&) = delete;

    Display* display() const { return m_display; }
    // The connection's one selection of XInput 2 raw events, shared by every adapter that follows them.
    X11RawInputSelection& rawInput() { return m_rawInput; }

    // Calls listener with every event read from now on that no waiter took, in arrival order. Listeners
    // may subscribe and unsubscribe from inside a call. Non-blocking.
    [[nodiscard]] Subscription subscribe(Listener listener)
    {
        return m_listeners.subscribe(std::move(listener));
    }
    // co_await pump.waitFor(match, timeout, &event): suspends until an event that match accepts arrives
    // (copied to received unless it is null; it goes to no listener; the earliest waiter wins) or timeout
    // passes; true when the event came. An event already read by an earlier round trip counts. Non-blocking.
    WaitAwaiter waitFor(Match match, std::chrono::milliseconds timeout, XEvent* received = nullptr)
    {
        return WaitAwaiter(*this, std::move(match), timeout, received);
    }
    // Dispatches every event Xlib has queued or the server has sent, now rather than when the loop next
    // runs: for code that must have seen what the server already said (a change count, the notice of its
    // own write) or cannot return to the loop (a hand-over at exit). Non-blocking.
    void dispatchPending();

private:
    void dispatch(const XEvent& event);
    void dispatchBeforeSleep();

    Display* m_display;
    Clock& m_clock;
    X11RawInputSelection m_rawInput;
    ListenerList<const XEvent&> m_listeners;
    std::list<WaitAwaiter*> m_waiters;
    QMetaObject::Connection m_aboutToBlock;
};
