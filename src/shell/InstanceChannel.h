#pragma once

#include <QObject>
#include <QString>

class QLocalServer;

// The line between a running program and a second start of it in the same user session: the second start
// asks the first to bring its window forward, the way clicking a running program's icon does. GUI thread.
class InstanceChannel : public QObject {
    Q_OBJECT
public:
    // name is unique per user session (it lives in the runtime directory).
    explicit InstanceChannel(QString name, QObject* parent = nullptr);
    ~InstanceChannel() override;

    // Starts answering later starts; false when the channel cannot be opened.
    bool listen();
    // From a second start: asks the running program to show itself. Blocks for at most timeoutMs; false
    // when nobody answered.
    bool askRunningInstanceToShow(int timeoutMs = 2000) const;

signals:
    void showRequested();

private:
    QString m_name;
    QLocalServer* m_server = nullptr;
};
