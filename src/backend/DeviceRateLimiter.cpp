#include "backend/DeviceRateLimiter.h"

DeviceRateLimiter::DeviceRateLimiter(const Clock& clock, int maxPerWindow, Clock::Duration window)
    : m_clock(clock), m_maxPerWindow(maxPerWindow), m_window(window)
{}

bool DeviceRateLimiter::admit(const QString& deviceId)
{
    const Clock::Duration now = m_clock.elapsed();
    // Forgetting finished windows keeps the table as small as the set of recently active devices.
    if (m_windows.size() > 10'000) {
        m_windows.removeIf(
            [&](const QHash<QString, Window>::iterator& it) { return now - it->start >= m_window; });
    }
    Window& window = m_windows[deviceId];
    if (window.count == 0 || now - window.start >= m_window) {
        window = Window{now, 0};
    }
    if (window.count >= m_maxPerWindow) {
        return false;
    }
    ++window.count;
    return true;
}
