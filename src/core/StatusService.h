#pragma once

#include "core/ActionStatus.h"
#include "core/Clock.h"

#include <QObject>

// The status that the status display shows, and its way back to idle. Every panel and service
// reports through publish, so the reset rules live here only. GUI thread.
class StatusService : public QObject {
    Q_OBJECT
public:
    explicit StatusService(Clock& clock, QObject* parent = nullptr) : QObject(parent), m_clock(clock) {}

    const ActionStatus& status() const { return m_status; }

    // Shows the status and schedules its reset: a pending reset is dropped whatever the new status is; done
    // returns to idle after 0.9 s and failed after 1.3 s, unless the status changed meanwhile; running and
    // idle stay until the next status.
    void publish(ActionStatus status);

signals:
    void statusChanged();

private:
    void set(ActionStatus status);
    void scheduleReset(ActionStatus status);

    Clock& m_clock;
    ActionStatus m_status;
    // Owned here, so a destroyed service is never reset.
    ClockTimer m_resetTimer;
};
