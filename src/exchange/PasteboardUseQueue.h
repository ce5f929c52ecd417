#pragma once

#include <coroutine>
#include <deque>

// Hands the clipboard to one transient use at a time, in the order the uses asked for it. Chords pressed in
// quick succession start runs that overlap; were their uses to interleave, a later one would snapshot the
// earlier one's copied selection as the user's clipboard and put that back at its end. GUI thread; waiting
// suspends the coroutine, nothing blocks.
class PasteboardUseQueue {
public:
    // The clipboard belongs to its holder until it goes; then the next waiting use resumes.
    class Turn {
    public:
        explicit Turn(PasteboardUseQueue& queue) : m_queue(&queue) {}
        Turn(Turn&& other) noexcept : m_queue(other.m_queue) { other.m_queue = nullptr; }
        Turn(const Turn&) = delete;
        Turn& operator=(const Turn&) = delete;
        Turn& operator=(Turn&&) = delete;
        ~Turn();

    private:
        PasteboardUseQueue* m_queue;
    };

    class TurnAwaiter {
    public:
        explicit TurnAwaiter(PasteboardUseQueue& queue) : m_queue(queue) {}
        bool await_ready() noexcept;
        void await_suspend(std::coroutine_handle<> waiter) { m_queue.m_waiting.push_back(waiter); }
        Turn await_resume() noexcept { return Turn(m_queue); }

    private:
        PasteboardUseQueue& m_queue;
    };

    // co_await queue.waitForTurn() resumes once every use that asked before has ended; keep the Turn for
    // as long as the clipboard is in use.
    TurnAwaiter waitForTurn() { return TurnAwaiter(*this); }
    bool isInUse() const { return m_inUse; }
    int waitingCount() const { return int(m_waiting.size()); }

private:
    void passOn();

    bool m_inUse = false;
    std::deque<std::coroutine_handle<>> m_waiting;
};
