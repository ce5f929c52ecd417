#include "platform/x11/X11EventPump.h"

#include <QAbstractEventDispatcher>
#include <QSocketNotifier>
#include <X11/Xlib.h>
#include <algorithm>

X11EventPump::WaitAwaiter::WaitAwaiter(X11EventPump& pump, Match match, std::chrono::milliseconds timeout,
                                       XEvent* received)
    : m_pump(&pump), m_match(std::move(match)), m_timeout(timeout), m_received(received)
{}

X11EventPump::WaitAwaiter::WaitAwaiter(WaitAwaiter&& other) noexcept
    : m_pump(other.m_pump), m_match(std::move(other.m_match)), m_timeout(other.m_timeout),
      m_received(other.m_received)
{
    Q_ASSERT(!other.m_waiting);
}

X11EventPump::WaitAwaiter::~WaitAwaiter()
{
    // A coroutine destroyed while suspended takes its awaiter with it; the pump must forget it. A pump
    // destroyed first has cleared m_pump.
    if (m_waiting && m_pump) {
        m_pump->m_waiters.remove(this);
    }
}

bool X11EventPump::WaitAwaiter::await_suspend(std::coroutine_handle<> handle)
{
    if (!m_pump->m_display) {
        return false;
    }
    m_handle = handle;
    m_waiting = true;
    m_pump->m_waiters.push_back(this);
    // The answer may already sit in Xlib's queue, read there by the round trip that sent the request; then
    // the coroutine goes on without suspending.
    m_suspending = true;
    m_pump->dispatchPending();
    m_suspending = false;
    if (!m_waiting) {
        return false;
    }
    m_timer = m_pump->m_clock.schedule(m_timeout, [this] { finish(false); });
    return true;
}

void X11EventPump::WaitAwaiter::finish(bool matched)
{
    if (!m_waiting) {
        return;
    }
    m_waiting = false;
    m_matched = matched;
    m_pump->m_waiters.remove(this);
    m_timer.cancel();
    if (!m_suspending) {
        // May destroy this awaiter; nothing of it is touched afterwards.
        m_handle.resume();
    }
}

X11EventPump::X11EventPump(Display* display, Clock& clock, QObject* parent)
    : QObject(parent), m_display(display), m_clock(clock), m_rawInput(display)
{
    if (!m_display) {
        return;
    }
    auto* notifier = new QSocketNotifier(ConnectionNumber(m_display), QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &X11EventPump::dispatchPending);
    if (auto* dispatcher = QAbstractEventDispatcher::instance(thread())) {
        m_aboutToBlock = connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, this,
                                 &X11EventPump::dispatchBeforeSleep);
    }
}

X11EventPump::~X11EventPump()
{
    disconnect(m_aboutToBlock);
    // Waiters still suspended belong to coroutines that will never resume; detach them so their
    // destructors do not touch a gone pump.
    for (WaitAwaiter* waiter : m_waiters) {
        waiter->m_waiting = false;
        waiter->m_pump = nullptr;
        waiter->m_timer.cancel();
    }
}

void X11EventPump::dispatchBeforeSleep()
{
    // WORKAROUND: any Xlib round trip may read events into Xlib's own queue, after which the socket stays
    // quiet although events wait; they are dispatched before the loop sleeps. Requests an adapter left in
    // the output buffer are sent too, so no answer waits on our own silence.
    XFlush(m_display);
    if (XEventsQueued(m_display, QueuedAlready) > 0) {
        dispatchPending();
    }
}

void X11EventPump::dispatchPending()
{
    if (!m_display) {
        return;
    }
    // A listener that resumes a coroutine may come back here; the outer loop keeps reading in order.
    while (XPending(m_display) > 0) {
        XEvent event;
        XNextEvent(m_display, &event);
        dispatch(event);
    }
}

void X11EventPump::dispatch(const XEvent& event)
{
    const auto waiter = std::find_if(m_waiters.begin(), m_waiters.end(),
                                     [&](const WaitAwaiter* w) { return w->m_match(event); });
    if (waiter != m_waiters.end()) {
        WaitAwaiter* taken = *waiter;
        if (taken->m_received) {
            *taken->m_received = event;
        }
        taken->finish(true);
        return;
    }
    m_listeners.notify(event);
}
