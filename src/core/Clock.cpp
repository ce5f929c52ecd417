#include "core/Clock.h"

ClockTimer& ClockTimer::operator=(ClockTimer&& other) noexcept
{
    if (this != &other) {
        cancel();
        m_state = std::move(other.m_state);
    }
    return *this;
}

void ClockTimer::cancel()
{
    if (!m_state) {
        return;
    }
    auto state = std::move(m_state);
    if (state->active) {
        state->active = false;
        if (state->stop) {
            auto stop = std::move(state->stop);
            stop();
        }
    }
}
