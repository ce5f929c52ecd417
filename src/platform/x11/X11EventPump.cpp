#include "platform/x11/X11EventPump.h"

#include <QAbstractEventDispatcher>
#include <QSocketNotifier>
#include <QThread>
#include <X11/Xlib.h>
#include <algorithm>

X11EventPump::Subscription::~Subscription() = default;

X11EventPump::WaitAwaiter::WaitAwaiter(X11EventPump& pump, Match match, std::chrono::milliseconds timeout,
                                       XEvent* received)
    : m_pump(pump), m_match(std::move(match)), m_timeout(timeout), m_received(received)
{
}

X11EventPump::WaitAwaiter::~WaitAwaiter()
{
    // A coroutine destroyed while suspended takes its awaiter with it; the pump must forget it.
    if (m_waiting) {
        m_pump.m_waiters.remove(this);
    }
}

bool X11EventPump::WaitAwaiter::await_suspend(std::coroutine_handle<> handle)
{
    m_handle = handle;
    m_waiting = true;
    m_pump.m_waiters.push_back(this);
    // The answer may already sit in Xlib's queue, read there by the round trip that sent the request; then
    // the coroutine goes on without suspending.
    m_suspending = true;
    m_pump.dispatchPending();
    m_suspending = false;
    if (!m_waiting) {
        return false;
    }
    m_timer = m_pump.m_clock.schedule(m_timeout, [this] { finish(false); });
    return true;
}

void X11EventPump::WaitAwaiter::finish(bool matched)
{
    if (!m_waiting) {
        return;
    }
    m_waiting = false;
    m_matched = matched;
    m_pump.m_waiters.remove(this);
    m_timer.cancel();
    if (!m_suspending) {
        m_handle.resume();
    }
}

X11EventPump::X11EventPump(Display* display, Clock& clock, QObject* parent)
    : QObject(parent), m_display(display), m_clock(clock)
{
    if (!m_display) {
        return;
    }
    auto* notifier = new QSocketNotifier(ConnectionNumber(m_display), QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &X11EventPump::dispatchPending);
    // WORKAROUND: any Xlib round trip may read events into Xlib's own queue, after which the socket stays
    // quiet although events wait; draining before the loop sleeps keeps them from stalling.
    if (auto* dispatcher = QAbstractEventDispatcher::instance(thread())) {
        m_aboutToBlock = connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, this,
                                 &X11EventPump::dispatchPending);
    }
}

X11EventPump::~X11EventPump()
{
    disconnect(m_aboutToBlock);
    // Waiters still suspended belong to coroutines that will never resume; detach them so their
    // destructors do not touch a gone pump.
    for (WaitAwaiter* waiter : m_waiters) {
        waiter->m_waiting = false;
        waiter->m_timer.cancel();
    }
}

X11EventPump::Subscription X11EventPump::subscribe(Listener listener)
{
    auto shared = std::make_shared<Listener>(std::move(listener));
    m_listeners.push_back(shared);
    return Subscription(shared);
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
        *taken->m_received = event;
        taken->finish(true);
        return;
    }
    m_listeners.remove_if([](const std::weak_ptr<Listener>& listener) { return listener.expired(); });
    // A copy, so listeners may subscribe or unsubscribe while being called.
    const auto listeners = m_listeners;
    for (const auto& weak : listeners) {
        if (const auto listener = weak.lock()) {
            (*listener)(event);
        }
    }
}
