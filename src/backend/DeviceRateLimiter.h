#pragma once

#include "core/Clock.h"

#include <QHash>
#include <QString>

// Requests per device in a fixed window, so one installation cannot use up the model server for all.
class DeviceRateLimiter {
public:
    DeviceRateLimiter(const Clock& clock, int maxPerWindow, Clock::Duration window);

    // Counts one request of the device; false when it is over its allowance for the current window.
    bool admit(const QString& deviceId);

private:
    struct Window {
        Clock::Duration start{0};
        int count = 0;
    };

    const Clock& m_clock;
    int m_maxPerWindow;
    Clock::Duration m_window;
    QHash<QString, Window> m_windows;
};
