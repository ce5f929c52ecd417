#pragma once

#include <QObject>
#include <csignal>

class QSocketNotifier;

// Turns SIGINT and SIGTERM into a Qt signal on the event loop, so the resident app quits through its
// normal shutdown path (releasing hotkey grabs and handing the clipboard over) instead of dying mid-work.
// One watcher at a time, on the GUI thread; it gives back the previous handlers and its socket pair when it
// goes.
class UnixSignalWatcher : public QObject {
    Q_OBJECT
public:
    explicit UnixSignalWatcher(QObject* parent = nullptr);
    ~UnixSignalWatcher() override;
    UnixSignalWatcher(const UnixSignalWatcher&) = delete;
    UnixSignalWatcher& operator=(const UnixSignalWatcher&) = delete;

signals:
    void terminationRequested(int signalNumber);

private:
    static void handle(int signalNumber);

    QSocketNotifier* m_notifier = nullptr;
    struct sigaction m_previousInterrupt = {};
    struct sigaction m_previousTerminate = {};
};
