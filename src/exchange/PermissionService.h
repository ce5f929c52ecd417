#pragma once

#include <QStringList>
#include <qcoro/qcorotask.h>

class ProcessRunner;

// Resets the system grants of every identifier the program has ever run under, through the system's reset
// tool. One reset at a time by the callers' discipline.
class PermissionService {
public:
    explicit PermissionService(ProcessRunner& runner) : m_runner(runner) {}

    static QString toolPath() { return QStringLiteral("/usr/bin/tccutil"); }

    // One line per tool run ("reset ..." or "skip ..."), Accessibility first, then ListenEvent. Throws
    // PermissionToolError when the tool cannot be started; a non-zero exit is only a skip line.
    QCoro::Task<QStringList> resetMivoraPermissions();

private:
    QCoro::Task<QString> runTccutil(QString service, QString bundleId);

    ProcessRunner& m_runner;
};
