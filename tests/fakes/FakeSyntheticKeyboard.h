#pragma once

#include "core/Clock.h"
#include "platform/SyntheticKeyboard.h"

#include <QList>
#include <functional>

// Records every synthetic key event with the virtual time it was posted at; onShortcut plays the target
// application's answer to a completed shortcut (copy a selection, take a paste).
class FakeSyntheticKeyboard : public SyntheticKeyboard {
public:
    struct Event {
        bool press;
        quint16 key;
        qint64 at;
    };

    explicit FakeSyntheticKeyboard(Clock& clock) : m_clock(clock) {}

    bool postingSucceeds = true;
    std::function<void(quint16 key)> onShortcut;
    QList<Event> events;

    bool pressShortcut(quint16 virtualKey) override
    {
        if (!postingSucceeds) {
            return false;
        }
        events.append({true, virtualKey, qint64(m_clock.elapsed().count())});
        return true;
    }
    bool releaseShortcut(quint16 virtualKey) override
    {
        events.append({false, virtualKey, qint64(m_clock.elapsed().count())});
        if (onShortcut) {
            onShortcut(virtualKey);
        }
        return true;
    }

    // The times at which shortcuts with this key were pressed.
    QList<qint64> pressTimes(quint16 key) const
    {
        QList<qint64> times;
        for (const Event& event : events) {
            if (event.press && event.key == key) {
                times.append(event.at);
            }
        }
        return times;
    }

private:
    Clock& m_clock;
};
