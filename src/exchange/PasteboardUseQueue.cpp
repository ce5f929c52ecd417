#include "exchange/PasteboardUseQueue.h"

PasteboardUseQueue::Turn::~Turn()
{
    if (m_queue) {
        m_queue->passOn();
    }
}

bool PasteboardUseQueue::TurnAwaiter::await_ready() noexcept
{
    if (m_queue.m_inUse) {
        return false;
    }
    m_queue.m_inUse = true;
    return true;
}

void PasteboardUseQueue::passOn()
{
    if (m_waiting.empty()) {
        m_inUse = false;
        return;
    }
    // The clipboard stays in use: it goes straight to the next waiter, before any poll could see it free.
    const std::coroutine_handle<> next = m_waiting.front();
    m_waiting.pop_front();
    next.resume();
}
