#include "core/StatusService.h"

using namespace std::chrono_literals;

void StatusService::publish(ActionStatus status)
{
    set(status);
    scheduleReset(std::move(status));
}

void StatusService::set(ActionStatus status)
{
    m_status = std::move(status);
    emit statusChanged();
}

void StatusService::scheduleReset(ActionStatus status)
{
    m_resetTimer.cancel();
    if (status.kind == ActionStatus::Kind::running || status.kind == ActionStatus::Kind::idle) {
        return;
    }
    const auto delay = status.kind == ActionStatus::Kind::done ? 900ms : 1300ms;
    m_resetTimer = m_clock.schedule(delay, [this, status = std::move(status)] {
        if (m_status == status) {
            publish(ActionStatus::idle());
        }
    });
}
