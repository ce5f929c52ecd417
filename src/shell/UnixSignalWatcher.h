#pragma once

#include <QObject>

class QSocketNotifier;

// Turns SIGINT and SIGTERM into a Qt signal on the event loop, so the resident app quits through its
// normal shutdown path (releasing hotkey grabs and handing the clipboard over) instead of dying mid-work.
class UnixSignalWatcher : public QObject {
    Q_OBJECT
public:
    explicit UnixSignalWatcher(QObject* parent = nullptr);
    ~UnixSignalWatcher() override;

signals:
    void terminationRequested(int signalNumber);

private:
    static void handle(int signalNumber);

    QSocketNotifier* m_notifier = nullptr;
};
